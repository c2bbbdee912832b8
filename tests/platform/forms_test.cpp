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
    const auto eventsWith = [&](bool enabled, bool visible, bool boxVisible) {
        events = 0;
        button.SetEnabled(enabled);
        button.SetVisible(visible);
        box.SetVisible(boxVisible);
        button.Click();
        button.PointerMove({1, 2});
        button.MouseDown();
        button.MouseUp();
        return events;
    };
    EXPECT_EQ(eventsWith(true, true, true), 4);
    EXPECT_EQ(eventsWith(false, true, true), 0);
    EXPECT_EQ(eventsWith(true, false, true), 0);
    EXPECT_EQ(eventsWith(true, true, false), 0);
}

TEST(FormsTest, SettingAPropertyMarksAChangeAndRunsNoEvent) {
    int events = 0;
    CheckBox check("text");
    OptionButton option;
    ComboBox combo;
    ScrollBar bar;
    check.OnClick = option.OnClick = combo.OnClick = bar.OnChange = [&] { ++events; };
    EXPECT_TRUE(check.TakeChanged()) << "a new control is drawn";
    check.SetCaption("text");
    EXPECT_FALSE(check.TakeChanged()) << "nothing is different";
    check.SetCaption("other");
    EXPECT_TRUE(check.TakeChanged());
    EXPECT_FALSE(check.TakeChanged());
    combo.AddEntry("one");
    check.SetValue(true);
    option.SetValue(true);
    combo.Select(0);
    bar.SetValue(3);
    EXPECT_EQ(events, 0);
}

TEST(FormsTest, OneOptionOfAGroupIsChosen) {
    OptionButton a, b, alone;
    OptionButton::Group({&a, &b});
    bool chosenInEvent = false;
    b.OnClick = [&] { chosenInEvent = b.Value() && !a.Value(); };
    for (OptionButton* option : {&alone, &a, &b}) option->Click();
    EXPECT_TRUE(chosenInEvent);
    a.SetValue(true);
    EXPECT_FALSE(b.Value());
    a.Click();
    EXPECT_TRUE(a.Value()) << "a second click does not release it";
    EXPECT_TRUE(alone.Value());
}

TEST(FormsTest, ComboBoxKeepsTextAndEntriesApart) {
    ComboBox combo;
    combo.AddEntry("one");
    combo.AddEntry("two");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.Pick(1);
    EXPECT_EQ(combo.Text(), "two");
    combo.Edit("typed");
    combo.Select(2);
    combo.Select(-1);
    EXPECT_EQ(combo.Text(), "typed");
    EXPECT_EQ(combo.ListIndex(), 1) << "the entry last selected";
    combo.ClearEntries();
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListIndex(), -1);
}

}  // namespace
