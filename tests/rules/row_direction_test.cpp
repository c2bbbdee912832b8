#include "rules/row_direction.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace rules {
namespace {

using fakes::kOld;
using fakes::Rows;
using fakes::Texts;

// New: n0 (Folder 1), n1 (Folder 2). Chg: c0, c1. Same: s0, s1.
class RowDirectionTest : public fakes::MainWindowTest {
  protected:
    RowDirectionTest() {
        for (const char* name : {"1/n0", "2/n1", "1/c0", "1/c1", "1/s0", "1/s1", "2/s1"}) Put(name);
        Put("1/c0", fakes::kNew, 9);
        Put("2/c0", kOld, 10);
        Put("1/c1", {kOld.Seconds, 1});
        Put("2/c1", kOld);
        Put("2/s0", kOld, 2);
        form.Command3.Click();
    }

    // Clicks the direction cell of a row of the view.
    void Open(platform::Label& view, std::size_t row) {
        view.Click();
        form.sMAC[row].Click();
        EXPECT_TRUE(form.Picture3.Visible());
    }
    // What the panel says of a side: path|age|date|size mark|size, "-" when it cannot be copied
    // from, "*" when it is chosen.
    std::string Said(platform::Label& view, std::size_t row, const std::string& side) {
        Open(view, row);
        std::string said = fakes::FakeFiles::NameOf(form.Window.Find("TextN" + side)->ShownText());
        for (const char* part : {"1", "2", "3", "4"})
            said += '|' + form.Window.Find("LabelN" + side + part)->ShownText();
        const platform::OptionButton& option = side == "1" ? form.Option1 : form.Option2;
        return said + (option.Value() ? " *" : option.Enabled() ? "" : " -");
    }
    void Choose(platform::Label& view, std::size_t row, platform::OptionButton& option) {
        Open(view, row);
        option.Click();
        form.Command2.Click();
        EXPECT_FALSE(form.Picture3.Visible());
        const std::string written = form.sMAC[row].Caption();
        view.Click();
        EXPECT_EQ(form.sMAC[row].Caption(), written) << "what the view says of the code";
    }
};

// The panel knows its row by the row's number in the list that was shown.
TEST_F(RowDirectionTest, OpensOnARowThatHasADirectionAndGoesWhenAnotherViewComes) {
    form.Table.SameList.assign(60, compare::CompareItem(form.Table.SameList[0]));
    Open(form.LabelAllFile, 14);
    EXPECT_EQ(form.Picture3.Place().Top, 3080) << "above the row, which is far down";
    form.VScroll1.Scroll(30);
    EXPECT_FALSE(form.Picture3.Visible());
    form.sMAC[7].Click();
    form.Option1.Click();
    form.Command2.Click();
    EXPECT_EQ(form.Table.SameList[37].Code, 21) << "counted from the top of the list";
    EXPECT_EQ(form.sMAC[7].Caption(), "Replace -->");
    for (const char* other : {"LabelAllFile", "Command3", "Command4"}) {
        Open(form.LabelNewFile, 0);
        form.Window.Find(other)->Click();
        EXPECT_FALSE(form.Picture3.Visible()) << other;
    }
    form.sMAC[0].Click();
    EXPECT_FALSE(form.Picture3.Visible()) << "a result is no direction";
}

// Sizes and times are compared as texts: "9" is larger than "10", and what lies within a second is
// no newer.
TEST_F(RowDirectionTest, ShowsTheFilesAndWhatCanBeDone) {
    const std::string old = platform::FormatFileTime(kOld),
                      recent = platform::FormatFileTime(fakes::kNew);
    EXPECT_EQ(Said(form.LabelNewFile, 0, "1"), "1/n0|New|" + old + "||1  byte *");
    EXPECT_EQ(Said(form.LabelNewFile, 0, "2"), "|||| -");
    EXPECT_EQ(Said(form.LabelNewChgFile, 1, "1"), "|||| -");
    EXPECT_EQ(Said(form.LabelNewChgFile, 1, "2"), "2/n1|New|" + old + "||1  byte *");
    EXPECT_EQ(form.Option1.Caption() + form.Option2.Caption(),
              "Copy File 1 to Folder 2 -->Copy File 2 to Folder 1 <--");
    EXPECT_EQ(Said(form.LabelChgFile, 0, "2"), "2/c0|Older|" + old + "|Smaller|10  byte");
    EXPECT_EQ(Said(form.LabelChgFile, 1, "1"), "1/c1|Older|" + old + "||1  byte");
    EXPECT_EQ(Said(form.LabelNewChgFile, 2, "1"), "1/c0|Newer|" + recent + "|Larger|9  byte *");
    EXPECT_EQ(form.Option1.Caption() + form.Option2.Caption(),
              "Replace File 2 with File 1 -->Replace File 1 with File 2 <--");
    EXPECT_EQ(Said(form.LabelAllFile, 0, "2"), "2/s0||" + old + "||2  byte");
    EXPECT_TRUE(form.Option3.Value());
}

TEST_F(RowDirectionTest, OkWritesTheChoiceWhereTheViewSaysAndCancelNothing) {
    Choose(form.LabelNewFile, 0, form.Option3);
    Choose(form.LabelChgFile, 0, form.Option3);
    Choose(form.LabelAllFile, 1, form.Option2);
    EXPECT_EQ(Rows(form.Table.SameList), (Texts{"0 s0", "22 s1"}));
    EXPECT_EQ(Rows(form.Table.NewChgList), (Texts{"40 n0", "12 n1", "40 c0", "22 c1"}));
    Choose(form.LabelNewChgFile, 0, form.Option1);
    Choose(form.LabelNewChgFile, 3, form.Option1);
    Open(form.LabelNewChgFile, 2);
    EXPECT_EQ(form.Window.DefaultButton, &form.Command2);
    form.Option2.Click();
    form.Window.CancelButton->Click();  // Esc
    EXPECT_EQ(form.Window.DefaultButton, &form.Command3);
    EXPECT_EQ(Rows(form.Table.NewChgList), (Texts{"11 n0", "12 n1", "40 c0", "21 c1"}));
    EXPECT_EQ(Rows(form.Table.NewList), (Texts{"40 n0", "12 n1"}));
    EXPECT_EQ(Rows(form.Table.ChgList), (Texts{"40 c0", "22 c1"}));
}

}  // namespace
}  // namespace rules
