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
    const bool cases[][3] = {
        {true, true, true}, {false, true, true}, {true, false, true}, {true, true, false}};
    for (const auto& [enabled, visible, boxVisible] : cases) {
        button.SetEnabled(enabled);
        button.SetVisible(visible);
        box.SetVisible(boxVisible);
        button.Click();
        button.PointerMove({1, 2});
        button.MouseDown();
        button.MouseUp();
        EXPECT_EQ(events, 4) << "those of the first time";
    }
}

TEST(FormsTest, SettingAPropertyMarksAChangeAndRunsNoEvent) {
    CheckBox check("text");
    OptionButton option;
    ScrollBar bar;
    check.OnClick = option.OnClick = bar.OnChange = [] { ADD_FAILURE(); };
    check.TakeChanged();
    check.SetCaption("text");
    EXPECT_FALSE(check.TakeChanged()) << "nothing is different";
    check.SetCaption("other");
    EXPECT_TRUE(check.TakeChanged());
    EXPECT_FALSE(check.TakeChanged());
    check.SetValue(true);
    option.SetValue(true);
    bar.SetValue(3);
}

TEST(FormsTest, OneOptionOfAGroupIsChosen) {
    OptionButton a, b, alone;
    OptionButton::Group({&a, &b});
    b.OnClick = [&] { EXPECT_TRUE(b.Value() && !a.Value()) << "before the event"; };
    for (OptionButton* option : {&alone, &a, &b, &a, &a}) option->Click();
    EXPECT_TRUE(a.Value()) << "A second click does not release it.";
    EXPECT_FALSE(b.Value());
    EXPECT_TRUE(alone.Value());
}

TEST(FormsTest, ComboBoxKeepsTextAndEntriesApart) {
    ComboBox combo;
    combo.OnClick = [&] { EXPECT_EQ(combo.Text(), "two"); };
    for (const char* entry : {"one", "two"}) combo.AddEntry(entry);
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.Pick(1);
    combo.Edit("typed");
    for (const int none : {2, -1}) combo.Select(none);
    EXPECT_EQ(combo.Text(), "typed");
    EXPECT_EQ(combo.ListIndex(), 1) << "the entry last selected";
    combo.ClearEntries();
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.OnClick = [] { ADD_FAILURE() << "Selecting is no click."; };
    combo.AddEntry("one");
    combo.Select(0);
}

}  // namespace
