#include "grid/category_labels.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace grid {
namespace {

using fakes::Texts;

class CategoryLabelsTest : public fakes::MainWindowTest {
  protected:
    platform::Label* const labels[5] = {&form.LabelNewFile, &form.LabelChgFile,
                                        &form.LabelNewChgFile, &form.LabelAllFile,
                                        &form.LabelFileFilter};
    platform::Label* const frame[7] = {&form.Label5,  &form.Label6,  &form.Label7, &form.Label8,
                                       &form.Label10, &form.Label11, &form.Label12};

    // Clicks the four labels and says what each showed.
    Texts HeadingsOfClicks() {
        Texts headings;
        for (platform::Label* label : {labels[0], labels[1], labels[2], labels[3]}) {
            label->Click();
            headings.push_back(form.LabelShow.Caption());
        }
        return headings;
    }
};

TEST_F(CategoryLabelsTest, BeforeTheFirstComparison) {
    Texts captions;
    for (platform::Label* label : {labels[0], labels[1], labels[2], labels[3]})
        captions.push_back(label->Caption());
    EXPECT_EQ(captions, (Texts{"New Files ( 0 )", "Modified Files ( 0 )",
                               "New and Modified Files ( 0 )", "Unchanged Files ( 0 )"}));
    EXPECT_EQ(HeadingsOfClicks(), (Texts{"New Files:  0", "Modified Files:  0",
                                         "New and Modified Files:  0", "Same Files:  0"}));
}

// After a synchronisation the label of the modified files goes on showing them.
TEST_F(CategoryLabelsTest, AClickShowsTheCategoryAndAfterASyncItsResults) {
    for (const char* name : {"1/n1", "1/n2", "2/m"}) Put(name);
    PutBoth("same");
    Put("1/c", fakes::kNew);
    Put("2/c", fakes::kOld);
    files.RefusesCopy = [](const std::string&, const std::string& to) { return to == "2/n2"; };
    form.Command3.Click();
    EXPECT_EQ(HeadingsOfClicks(), (Texts{"New Files:  3", "Modified Files:  1",
                                         "New and Modified Files:  4", "Same Files:  1"}));
    form.LabelNewChgFile.Click();
    form.Command4.Click();
    EXPECT_EQ(HeadingsOfClicks(), (Texts{"Sync from Folder 1 to 2:  2", "Modified Files:  1",
                                         "Sync Failed Files:  1", "Synchronized Files:  4"}));
    form.LabelNewChgFile.Click();
    EXPECT_EQ(Column(form.sMAC), Texts{"--> Fail -->"});
    EXPECT_EQ(form.sMAC[0].ForeColor(), 0x0000FFu);
    form.Command3.Click();
    EXPECT_EQ(HeadingsOfClicks()[0], "New Files:  1");
}

TEST_F(CategoryLabelsTest, AClickStartsAtTheFirstRowWithTheListsScrollRange) {
    for (int i = 0; i < 70; ++i) Put("1/n" + std::to_string(i));
    for (int i = 0; i < 40; ++i) PutBoth("s" + std::to_string(i));
    form.Command3.Click();
    form.VScroll1.Scroll(44);
    EXPECT_EQ(form.sTYPE[0].Caption(), "45.");
    form.LabelAllFile.Click();
    EXPECT_EQ(form.sTYPE[0].Caption(), "1.");
    EXPECT_EQ(form.VScroll1.Value(), 0);
    EXPECT_EQ(form.VScroll1.Maximum(), 16);
    form.LabelChgFile.Click();
    EXPECT_EQ(form.VScroll1.Maximum(), 0);
    form.LabelNewFile.Click();
    EXPECT_EQ(form.VScroll1.Maximum(), 46);
}

TEST_F(CategoryLabelsTest, RedUnderThePointerBoldWhileHeldBlueAgainOverTheFrame) {
    for (platform::Label* around : frame) {
        for (platform::Label* label : labels) {
            EXPECT_EQ(label->ForeColor(), 0xFF0000u);
            label->PointerMove({});
            label->MouseDown();
            EXPECT_EQ(label->ForeColor(), 0x0000FFu);
            EXPECT_TRUE(label->Bold());
            label->MouseUp();
            EXPECT_FALSE(label->Bold());
            label->MouseDown();
        }
        form.Picture2.PointerMove({});
        form.Picture1.PointerMove({});
        EXPECT_EQ(labels[0]->ForeColor(), 0x0000FFu);
        around->PointerMove({});
        for (platform::Label* label : labels) EXPECT_FALSE(label->Bold());
    }
}

}  // namespace
}  // namespace grid
