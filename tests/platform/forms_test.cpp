#include "platform/forms.h"

#include <gtest/gtest.h>

namespace {

using namespace platform;

TEST(FormsTest, OnlyControlsInReachTakeInput) {
    Form form("Form");
    Picture box;
    Button button("&Go");
    form.Add(box, "Box", {0, 0, 100, 100});
    form.Add(button, "Go", {0, 0, 10, 10}, &box);
    int events = 0;
    button.OnClick = button.OnMouseDown = button.OnMouseUp = [&] { ++events; };
    button.OnPointerMove = [&](PointerPosition) { ++events; };
    const auto eventsOfAll = [&] {
        events = 0;
        button.Click();
        button.PointerMove({1, 2});
        button.MouseDown();
        button.MouseUp();
        return events;
    };
    EXPECT_EQ(eventsOfAll(), 4);
    button.SetEnabled(false);
    EXPECT_EQ(eventsOfAll(), 0);
    button.SetEnabled(true);
    button.SetVisible(false);
    EXPECT_EQ(eventsOfAll(), 0);
    button.SetVisible(true);
    box.SetVisible(false);
    EXPECT_EQ(eventsOfAll(), 0) << "its container is hidden";
    EXPECT_FALSE(button.Shown());
    box.SetVisible(true);
    EXPECT_EQ(eventsOfAll(), 4);
}

TEST(FormsTest, SettingAPropertyMarksAChangeAndRunsNoEvent) {
    int events = 0;
    const auto count = [&] { ++events; };
    Label label("text");
    label.OnClick = count;
    EXPECT_TRUE(label.TakeChanged()) << "a new control is drawn";
    label.SetCaption("text");
    label.SetVisible(true);
    EXPECT_FALSE(label.TakeChanged()) << "nothing is different";
    label.SetCaption("other");
    EXPECT_TRUE(label.TakeChanged());
    EXPECT_FALSE(label.TakeChanged());
    label.SetTop(15);
    EXPECT_TRUE(label.TakeChanged());

    CheckBox check;
    OptionButton option;
    ComboBox combo;
    ScrollBar bar;
    check.OnClick = option.OnClick = combo.OnClick = bar.OnChange = count;
    combo.AddEntry("one");
    check.SetValue(true);
    option.SetValue(true);
    combo.Select(0);
    bar.SetValue(3);
    EXPECT_EQ(events, 0);
}

TEST(FormsTest, ControlsAreFoundByTheirFixedNames) {
    Form form("Form");
    Label first;
    Label second;
    form.Add(first, "Label1", {1, 2, 3, 4});
    form.Add(second, "Label2", {});
    form.Menu = {{"mnuFile", "&File", {}, {{"mnuExit", "E&xit", {}, {}}}}, {"mnuHelp", "", {}, {}}};
    EXPECT_EQ(form.Find("Label2"), &second);
    EXPECT_EQ(form.Find("label2"), nullptr);
    EXPECT_EQ(first.Place(), (Place{1, 2, 3, 4}));
    ASSERT_NE(form.FindMenu("mnuExit"), nullptr);
    EXPECT_EQ(form.FindMenu("mnuExit")->Caption, "E&xit");
    EXPECT_EQ(form.FindMenu("mnuNone"), nullptr);
    first.BringToFront();
    second.BringToFront();
    EXPECT_GT(second.ZOrder(), first.ZOrder());
    first.BringToFront();
    EXPECT_GT(first.ZOrder(), second.ZOrder());
}

TEST(FormsTest, OneOptionOfAGroupIsChosen) {
    OptionButton a, b, alone;
    OptionButton::Group({&a, &b});
    bool chosenInEvent = false;
    b.OnClick = [&] { chosenInEvent = b.Value() && !a.Value(); };
    alone.Click();
    a.Click();
    b.Click();
    EXPECT_TRUE(chosenInEvent);
    EXPECT_FALSE(a.Value());
    a.SetValue(true);
    EXPECT_FALSE(b.Value());
    a.Click();
    EXPECT_TRUE(a.Value()) << "a second click does not release it";
    EXPECT_TRUE(alone.Value());
}

TEST(FormsTest, CheckBoxTurnsBeforeItsEvent) {
    CheckBox check;
    std::vector<bool> seen;
    check.OnClick = [&] { seen.push_back(check.Value()); };
    check.Click();
    check.Click();
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
}

TEST(FormsTest, TextBoxSwallowsKeysButNotWhatIsPasted) {
    TextBox box;
    box.OnKeyPress = [](char32_t key) { return key != ' ' && key != '.'; };
    box.Type("a .b, c");
    EXPECT_EQ(box.Text(), "ab,c");
    box.Paste(". pasted");
    EXPECT_EQ(box.Text(), ". pasted");
    box.SetReadOnly(true);
    box.Type("x");
    box.Paste("x");
    EXPECT_EQ(box.Text(), ". pasted");
}

TEST(FormsTest, ComboBoxKeepsTextAndEntriesApart) {
    ComboBox combo;
    int clicks = 0;
    combo.OnClick = [&] { ++clicks; };
    combo.AddEntry("one");
    combo.AddEntry("two");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.Pick(1);
    EXPECT_EQ(combo.Text(), "two");
    EXPECT_EQ(clicks, 1);
    combo.Edit("typed");
    EXPECT_EQ(combo.Text(), "typed");
    EXPECT_EQ(combo.ListIndex(), 1) << "the entry last selected";
    combo.Select(2);
    combo.Select(-1);
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.ClearEntries();
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(clicks, 1);
}

TEST(FormsTest, ListBoxLosesItsSelectionWithAnEntry) {
    ListBox list;
    for (const char* entry : {"a", "b", "c"}) list.AddEntry(entry);
    list.Select(1);
    list.Select(3);
    EXPECT_EQ(list.ListIndex(), 1);
    list.RemoveEntry(5);
    list.RemoveEntry(1);
    EXPECT_EQ(list.Entries(), (std::vector<std::string>{"a", "c"}));
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(FormsTest, ScrollingStaysWithinTheRange) {
    ScrollBar bar;
    std::vector<int> values;
    bar.OnChange = [&] { values.push_back(bar.Value()); };
    bar.SetMaximum(10);
    for (const int to : {5, 11, -1}) bar.Scroll(to);
    bar.SetMaximum(-3);
    bar.Scroll(2);
    EXPECT_EQ(values, (std::vector<int>{5, 10, 0, 0}));
    bar.SetVisible(false);
    bar.Scroll(0);
    EXPECT_EQ(values.size(), 4u);
}

}  // namespace
