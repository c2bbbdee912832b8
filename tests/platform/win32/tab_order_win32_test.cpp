#include <gtest/gtest.h>

#include "platform/win32/tab_order.h"

using namespace platform;
using namespace platform::win32;

TEST(TabOrderTest, StopsAndOptionsAreWhatCanBeReached) {
    Form form{"F"};
    Label label{"Text"};
    OptionButton first{"First"}, second{"Second"}, third{"Third"};
    Button button{"Button"};
    for (Control* control :
         std::initializer_list<Control*>{&label, &first, &second, &third, &button})
        form.Add(*control, "", {});
    OptionButton::Group({&first, &second, &third});
    EXPECT_EQ(NextStop(form, nullptr, Direction::Forward), &first);
    EXPECT_EQ(NextStop(form, &first, Direction::Forward), &button);
    second.SetValue(true);
    EXPECT_EQ(NextStop(form, &button, Direction::Backward), &second);
    second.SetEnabled(false);
    EXPECT_EQ(NextStop(form, &button, Direction::Forward), &first);
    EXPECT_EQ(NextOption(form, first, Direction::Forward), &third);
    EXPECT_EQ(NextOption(form, third, Direction::Forward), &first);
    for (Control* control : form.Controls) control->SetVisible(false);
    EXPECT_EQ(NextStop(form, nullptr, Direction::Forward), nullptr);
}
