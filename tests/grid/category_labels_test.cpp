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
    platform::Label* const categories[4] = {&form.LabelNewFile, &form.LabelChgFile,
                                            &form.LabelNewChgFile, &form.LabelAllFile};

    // Clicks the four labels and says what each showed.
    Texts HeadingsOfClicks() {
        Texts headings;
        for (platform::Label* label : categories) {
            label->Click();
            headings.push_back(form.LabelShow.Caption());
        }
        return headings;
    }
};

// After a synchronisation the label of the modified files goes on showing them.
TEST_F(CategoryLabelsTest, AClickShowsTheCategoryAndAfterASyncItsResults) {
    EXPECT_EQ(HeadingsOfClicks(), (Texts{"New Files:  0", "Modified Files:  0",
                                         "New and Modified Files:  0", "Same Files:  0"}));
    for (const char* name : {"1/n1", "1/n2", "2/m"}) Put(name);
    for (const char* name : {"same", "c"}) PutBoth(name);
    Put("1/c", fakes::kNew);
    files.RefusesCopy = [](const std::string&, const std::string& to) { return to == "2/n2"; };
    form.Command3.Click();
    EXPECT_EQ(HeadingsOfClicks(), (Texts{"New Files:  3", "Modified Files:  1",
                                         "New and Modified Files:  4", "Same Files:  1"}));
    form.LabelNewChgFile.Click();
    form.Command4.Click();
    EXPECT_EQ(HeadingsOfClicks(), (Texts{"Sync from Folder 1 to 2:  2", "Modified Files:  1",
                                         "Sync Failed Files:  1", "Synchronized Files:  4"}));
    form.Command3.Click();
    EXPECT_EQ(HeadingsOfClicks()[0], "New Files:  1");
}

TEST_F(CategoryLabelsTest, AClickStartsAtTheFirstRowWithTheListsScrollRange) {
    for (int i = 0; i < 70; ++i) Put("1/n" + std::to_string(i));
    for (int i = 0; i < 40; ++i) PutBoth("s" + std::to_string(i));
    form.Command3.Click();
    const int maxima[] = {46, 0, 46, 16};
    for (int i = 0; i < 4; ++i) {
        form.VScroll1.Scroll(44);
        categories[i]->Click();
        EXPECT_EQ(form.VScroll1.Maximum(), maxima[i]);
        EXPECT_EQ(form.VScroll1.Value(), 0);
        EXPECT_EQ(form.sTYPE[0].Caption(), i == 1 ? "" : "1.");
    }
}

TEST_F(CategoryLabelsTest, RedUnderThePointerBoldWhileHeldBlueAgainOverTheFrame) {
    for (platform::Label* around : {&form.Label5, &form.Label6, &form.Label7, &form.Label8,
                                    &form.Label10, &form.Label11, &form.Label12}) {
        for (platform::Label* label :
             {&form.LabelNewFile, &form.LabelChgFile, &form.LabelNewChgFile, &form.LabelAllFile,
              &form.LabelFileFilter}) {
            label->PointerMove({});
            label->MouseDown();
            EXPECT_TRUE(label->Bold());
            label->MouseUp();
            EXPECT_FALSE(label->Bold());
            label->MouseDown();
            form.Picture2.PointerMove({});
            EXPECT_EQ(label->ForeColor(), 0x0000FFu);
            around->PointerMove({});
            EXPECT_EQ(label->ForeColor(), 0xFF0000u);
            EXPECT_FALSE(label->Bold());
        }
    }
}

}  // namespace
}  // namespace grid
