#include "rules/row_direction.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace rules {
namespace {

using compare::CompareItem;
using fakes::kNew;
using fakes::kOld;
using platform::FileTime;

constexpr std::int64_t kMissing = platform::FileStatus::kNoSize;
const compare::FolderPair kRoot{nullptr, "/one/", "/two/"};

CompareItem Pair(const char* name, FileTime time1, std::int64_t size1, FileTime time2,
                 std::int64_t size2, std::int16_t code) {
    CompareItem item = fakes::Item(kRoot, name, code);
    item.Time1 = time1;
    item.Time2 = time2;
    item.Bytes1 = size1;
    item.Bytes2 = size2;
    item.PlainZeroDate2 = code == 11;
    return item;
}

// New: n0 (Folder 1), n1 (Folder 2). Chg: c0, c1. Same: s0, s1.
class RowDirectionTest : public fakes::MainWindowTest {
  protected:
    RowDirectionTest() {
        form.Table.NewList = {Pair("n0", kOld, 7, {}, kMissing, 11),
                              Pair("n1", {}, kMissing, kOld, 7, 12)};
        form.Table.ChgList = {Pair("c0", kNew, 9, kOld, 10, 21), Pair("c1", kOld, 5, kNew, 5, 22)};
        form.Table.SameList = {Pair("s0", kOld, 1, kOld, 2, 0), Pair("s1", kOld, 3, kOld, 3, 0)};
        form.Table.BuildNewChgList();
    }

    // Clicks the direction cell of a row of the view.
    void Open(platform::Label& view, std::size_t row) {
        view.Click();
        form.sMAC[row].Click();
        EXPECT_TRUE(IsOpen());
    }
    bool IsOpen() const { return form.Picture3.Visible(); }

    // What the panel says of the two files: age, size.
    std::string Marks() const {
        return form.LabelN11.Caption() + '|' + form.LabelN21.Caption() + '|' +
               form.LabelN13.Caption() + '|' + form.LabelN23.Caption();
    }
    // Of the options the one chosen, and those that can be.
    std::string Options() const {
        std::string options;
        for (const auto* option : {&form.Option1, &form.Option2, &form.Option3})
            options += option->Value() ? '*' : option->Enabled() ? 'o' : '-';
        return options;
    }
    std::string Codes() const {
        std::string codes;
        for (const compare::ItemList* list : {&form.Table.NewList, &form.Table.ChgList,
                                              &form.Table.NewChgList, &form.Table.SameList}) {
            for (const CompareItem& item : *list) codes += std::to_string(item.Code) + ' ';
            codes += "| ";
        }
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
    form.Table.SameList.assign(60, Pair("s", kOld, 1, kOld, 1, 0));
    for (const auto& [row, top] : {std::pair{0, 2300}, {13, 5420}, {14, 3080}, {24, 5480}}) {
        Open(same, static_cast<std::size_t>(row));
        EXPECT_EQ(form.Picture3.Place().Top, top) << row;
    }
    form.VScroll1.Scroll(30);
    form.sMAC[7].Click();
    form.Option1.Click();
    form.Command2.Click();
    EXPECT_EQ(form.Table.SameList[37].Code, 21) << "counted from the top of the list";
}

TEST_F(RowDirectionTest, ShowsTheFilesAndWhatCanBeDone) {
    const struct {
        platform::Label& View;
        std::size_t Row;
        const char *Path1, *Size1, *Path2, *Size2, *Marks, *Options;
    } cases[] = {
        {newFiles, 0, "/one/n0", "7  byte", "", "", "New|||", "*-o"},
        {newFiles, 1, "", "", "/two/n1", "7  byte", "|New||", "-*o"},
        {newChanged, 0, "/one/n0", "7  byte", "", "", "New|||", "*-o"},
        {newChanged, 1, "", "", "/two/n1", "7  byte", "|New||", "-*o"},
        {changed, 0, "/one/c0", "9  byte", "/two/c0", "10  byte", "Newer|Older|Larger|Smaller",
         "*oo"},
        {newChanged, 2, "/one/c0", "9  byte", "/two/c0", "10  byte", "Newer|Older|Larger|Smaller",
         "*oo"},
        {newChanged, 3, "/one/c1", "5  byte", "/two/c1", "5  byte", "Older|Newer||", "o*o"},
        {same, 0, "/one/s0", "1  byte", "/two/s0", "2  byte", "|||", "oo*"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.View.Name() + std::to_string(c.Row));
        Open(c.View, c.Row);
        EXPECT_EQ(form.TextN1.Text(), c.Path1);
        EXPECT_EQ(form.TextN2.Text(), c.Path2);
        EXPECT_EQ(form.LabelN14.Caption(), c.Size1);
        EXPECT_EQ(form.LabelN24.Caption(), c.Size2);
        EXPECT_EQ(form.LabelN12.Caption(), *c.Path1 ? form.sMD1[c.Row].Caption() : "");
        EXPECT_EQ(form.LabelN22.Caption(), *c.Path2 ? form.sMD2[c.Row].Caption() : "");
        EXPECT_EQ(Marks(), c.Marks);
        EXPECT_EQ(Options(), c.Options);
        const bool both = *c.Path1 && *c.Path2;
        EXPECT_EQ(form.Option1.Caption(),
                  both ? "Replace File 2 with File 1 -->" : "Copy File 1 to Folder 2 -->");
        EXPECT_EQ(form.Option2.Caption(),
                  both ? "Replace File 1 with File 2 <--" : "Copy File 2 to Folder 1 <--");
    }
}

// "100" sorts before "99", and the texts of times within one second are equal.
TEST_F(RowDirectionTest, MarksAreComparedAsTexts) {
    form.Table.ChgList[1] = Pair("c1", {kOld.Seconds, 1}, 100, kOld, 99, 22);
    Open(changed, 1);
    EXPECT_EQ(Marks(), "Older|Newer|Smaller|Larger");
    // A row not to be synchronised keeps the age marks of the panel's last opening.
    form.Table.NewChgList[3].Code = 40;
    for (const auto& [row, marks] : {std::pair{2u, "Newer|Older||"}, {0u, "New|||"}}) {
        Open(newChanged, row);
        Open(newChanged, 3);
        EXPECT_EQ(Marks(), marks);
    }
}

TEST_F(RowDirectionTest, OkWritesTheChoiceWhereTheViewSays) {
    platform::OptionButton& right = form.Option1;
    platform::OptionButton& left = form.Option2;
    platform::OptionButton& none = form.Option3;
    const struct {
        platform::Label& View;
        std::size_t Row;
        platform::OptionButton& Option;
        const char* Codes;  // New | Chg | NewChg | Same
        const char* Text;
    } cases[] = {
        {newFiles, 0, none, "40 12 | 21 22 | 40 12 21 22 | 0 0 | ", "---/---/---"},
        {newFiles, 0, right, "11 12 | 21 22 | 11 12 21 22 | 0 0 | ", "Copy -->"},
        {newFiles, 1, none, "11 40 | 21 22 | 11 40 21 22 | 0 0 | ", "---/---/---"},
        {newFiles, 1, left, "11 12 | 21 22 | 11 12 21 22 | 0 0 | ", "<-- Copy"},
        {changed, 1, right, "11 12 | 21 21 | 11 12 21 21 | 0 0 | ", "Replace -->"},
        {changed, 0, none, "11 12 | 40 21 | 11 12 40 21 | 0 0 | ", "---/---/---"},
        {same, 1, left, "11 12 | 40 21 | 11 12 40 21 | 0 22 | ", "<-- Replace"},
        {same, 1, none, "11 12 | 40 21 | 11 12 40 21 | 0 40 | ", "---/---/---"},
        {newChanged, 0, none, "11 12 | 40 21 | 40 12 40 21 | 0 40 | ", "---/---/---"},
        {newChanged, 0, right, "11 12 | 40 21 | 11 12 40 21 | 0 40 | ", "Copy -->"},
        {newChanged, 2, right, "11 12 | 40 21 | 11 12 21 21 | 0 40 | ", "Replace -->"},
        {newChanged, 3, left, "11 12 | 40 21 | 11 12 21 22 | 0 40 | ", "<-- Replace"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Codes);
        Open(c.View, c.Row);
        c.Option.Click();
        EXPECT_EQ(form.Window.DefaultButton, &form.Command2);
        form.Command2.Click();
        EXPECT_EQ(Codes(), c.Codes);
        EXPECT_EQ(form.sMAC[c.Row].Caption(), c.Text);
        EXPECT_FALSE(IsOpen());
    }
    Open(changed, 1);
    Open(changed, 0);
    left.Click();
    EXPECT_EQ(form.Window.CancelButton, &form.Command7);
    form.Command7.Click();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), std::end(cases)[-1].Codes) << "cancelled";
    EXPECT_EQ(form.Window.DefaultButton, &form.Command3);
    EXPECT_EQ(form.Window.CancelButton, nullptr);
}

}  // namespace
}  // namespace rules
