#include "rules/row_direction.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace rules {
namespace {

using fakes::kNew;
using fakes::kOld;

// New: n0 (Folder 1), n1 (Folder 2). Chg: c0, c1. Same: s0, s1.
class RowDirectionTest : public fakes::MainWindowTest {
  protected:
    RowDirectionTest() {
        for (const char* name : {"1/n0", "2/n1", "1/c0", "1/c1", "1/s0", "1/s1", "2/s1"}) Put(name);
        Put("1/c0", kNew, 9);
        Put("2/c0", kOld, 10);
        Put("2/c1", kNew);
        Put("2/s0", kOld, 2);
        form.Command3.Click();
    }

    // Clicks the direction cell of a row of the view.
    void Open(platform::Label& view, std::size_t row) {
        view.Click();
        form.sMAC[row].Click();
        EXPECT_TRUE(IsOpen());
    }
    bool IsOpen() const { return form.Picture3.Visible(); }

    // What the panel says of the file of a side: path|age|date|size mark|size.
    std::string File(const std::string& side) const {
        std::string said = fakes::FakeFiles::NameOf(form.Window.Find("TextN" + side)->ShownText());
        for (const char* part : {"1", "2", "3", "4"})
            said += '|' + form.Window.Find("LabelN" + side + part)->ShownText();
        return said;
    }
    // New|Chg|NewChg|Same
    std::string Codes() const {
        std::string codes;
        for (const compare::ItemList* list : {&form.Table.NewList, &form.Table.ChgList,
                                              &form.Table.NewChgList, &form.Table.SameList})
            for (const compare::CompareItem& item : *list)
                codes += std::to_string(item.Code) + (&item == &list->back() ? '|' : ' ');
        return codes;
    }

    platform::Label& newFiles = form.LabelNewFile;
    platform::Label& changed = form.LabelChgFile;
    platform::Label& newChanged = form.LabelNewChgFile;
    platform::Label& same = form.LabelAllFile;
};

TEST_F(RowDirectionTest, OpensBelowOrAboveARowThatHasADirection) {
    newFiles.Click();
    for (const char* caption : {"--> OK -->", "", "<-- Fail <--", "copy -->", "Copy --> "}) {
        form.sMAC[3].SetCaption(caption);
        form.sMAC[3].Click();
        EXPECT_FALSE(IsOpen()) << caption;
    }
    EXPECT_EQ(form.sMAC[3].BackColor(), 0x008000u) << "selected";
    form.Table.SameList.assign(60, form.Table.SameList[0]);
    for (const auto& [row, top] : {std::pair{0u, 2300}, {13u, 5420}, {14u, 3080}, {24u, 5480}}) {
        Open(same, row);
        EXPECT_EQ(form.Picture3.Place().Top, top) << row;
    }
    form.VScroll1.Scroll(30);
    form.sMAC[7].Click();
    form.Option1.Click();
    form.Command2.Click();
    EXPECT_EQ(form.Table.SameList[37].Code, 21) << "counted from the top of the list";
    EXPECT_EQ(form.sMAC[7].Caption(), "Replace -->");
}

TEST_F(RowDirectionTest, ShowsTheFilesAndWhatCanBeDone) {
    const std::string o = platform::FormatFileTime(kOld), n = platform::FormatFileTime(kNew);
    const std::string none = "||||", n0 = "1/n0|New|" + o + "||1  byte",
                      n1 = "2/n1|New|" + o + "||1  byte";
    const std::string newer = "1/c0|Newer|" + n + "|Larger|9  byte",
                      older = "2/c0|Older|" + o + "|Smaller|10  byte";
    const struct {
        platform::Label& View;
        std::size_t Row;
        std::string File1, File2;
        const platform::OptionButton& Chosen;
    } cases[] = {
        {newFiles, 0, n0, none, form.Option1},
        {newFiles, 1, none, n1, form.Option2},
        {newChanged, 0, n0, none, form.Option1},
        {newChanged, 1, none, n1, form.Option2},
        {changed, 0, newer, older, form.Option1},
        {newChanged, 3, "1/c1|Older|" + o + "||1  byte", "2/c1|Newer|" + n + "||1  byte",
         form.Option2},
        {same, 0, "1/s0||" + o + "||1  byte", "2/s0||" + o + "||2  byte", form.Option3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.View.Name() + std::to_string(c.Row));
        Open(c.View, c.Row);
        EXPECT_EQ(File("1"), c.File1);
        EXPECT_EQ(File("2"), c.File2);
        EXPECT_TRUE(c.Chosen.Value());
        EXPECT_EQ(form.Option1.Enabled(), c.File1 != none);
        EXPECT_EQ(form.Option2.Enabled(), c.File2 != none);
        const bool both = c.File1 != none && c.File2 != none;
        EXPECT_EQ(form.Option1.Caption(),
                  both ? "Replace File 2 with File 1 -->" : "Copy File 1 to Folder 2 -->");
        EXPECT_EQ(form.Option2.Caption(),
                  both ? "Replace File 1 with File 2 <--" : "Copy File 2 to Folder 1 <--");
    }
}

// "100" sorts before "99", and the texts of times within one second are equal.
TEST_F(RowDirectionTest, MarksAreComparedAsTexts) {
    Put("1/c1", {kOld.Seconds, 1}, 100);
    Put("2/c1", kOld, 99);
    form.Command3.Click();
    Open(changed, 1);
    EXPECT_EQ(form.LabelN11.Caption() + form.LabelN13.Caption(), "OlderSmaller");
    EXPECT_EQ(form.LabelN21.Caption() + form.LabelN23.Caption(), "NewerLarger");
    form.Table.NewChgList[3].Code = 40;
    Open(newChanged, 2);
    Open(newChanged, 3);
    EXPECT_EQ(form.LabelN11.Caption(), "Newer") << "of the panel's last opening";
}

TEST_F(RowDirectionTest, OkWritesTheChoiceWhereTheViewSays) {
    const struct {
        platform::Label& View;
        std::size_t Row;
        platform::OptionButton& Option;
        const char* Codes;
    } cases[] = {
        {newFiles, 0, form.Option3, "40 12|21 22|40 12 21 22|0 0|"},
        {newFiles, 0, form.Option1, "11 12|21 22|11 12 21 22|0 0|"},
        {newFiles, 1, form.Option2, "11 12|21 22|11 12 21 22|0 0|"},
        {changed, 1, form.Option1, "11 12|21 21|11 12 21 21|0 0|"},
        {changed, 0, form.Option3, "11 12|40 21|11 12 40 21|0 0|"},
        {same, 1, form.Option2, "11 12|40 21|11 12 40 21|0 22|"},
        {newChanged, 0, form.Option3, "11 12|40 21|40 12 40 21|0 22|"},
        {newChanged, 0, form.Option1, "11 12|40 21|11 12 40 21|0 22|"},
        {newChanged, 2, form.Option1, "11 12|40 21|11 12 21 21|0 22|"},
        {newChanged, 3, form.Option2, "11 12|40 21|11 12 21 22|0 22|"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Codes);
        Open(c.View, c.Row);
        c.Option.Click();
        EXPECT_EQ(form.Window.DefaultButton, &form.Command2);
        form.Command2.Click();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Codes(), c.Codes);
        const std::string written = form.sMAC[c.Row].Caption();
        c.View.Click();
        EXPECT_EQ(form.sMAC[c.Row].Caption(), written) << "what the view says of the code";
    }
    Open(changed, 1);
    Open(changed, 0);
    form.Option2.Click();
    EXPECT_EQ(form.Window.CancelButton, &form.Command7);
    form.Command7.Click();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), std::end(cases)[-1].Codes) << "cancelled";
    EXPECT_EQ(form.Window.DefaultButton, &form.Command3);
    EXPECT_EQ(form.Window.CancelButton, nullptr);
}

}  // namespace
}  // namespace rules
