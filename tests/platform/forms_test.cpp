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

TEST(FormsTest, SelectingAnEntryThatIsNotThereChangesNothing) {
    ComboBox combo;
    combo.AddEntry("one");
    combo.Pick(0);
    combo.Edit("typed");
    for (const int none : {1, -1}) combo.Select(none);
    EXPECT_EQ(combo.Text(), "typed");
    EXPECT_EQ(combo.ListIndex(), 0) << "the entry last selected";
}

}  // namespace
