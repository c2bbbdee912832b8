#include <string>

#include <gtest/gtest.h>

#include "platform/win32/tab_order.h"

namespace {

using platform::win32::ControlOfAccessKey;
using platform::win32::Direction;
using platform::win32::NextOption;

TEST(TabOrderTest, StopsOptionsAndAccessKeysAreWhatCanBeReached) {
    platform::Form form{"F"};
    platform::Label label{"&Text"};
    platform::TextBox text;
    platform::Picture panel;
    platform::OptionButton first{"&First"}, second{"&Second"}, third{"Third"};
    platform::Button button{"R&&D b&utton"};
    form.Add(label, "Label", {});
    form.Add(text, "Text", {});
    form.Add(panel, "Panel", {});
    for (platform::OptionButton* option : {&first, &second, &third})
        form.Add(*option, option->Caption(), {}, &panel);
    form.Add(button, "Button", {});
    platform::OptionButton::Group({&first, &second, &third});
    const auto round = [&](Direction direction) {
        std::string names;
        const platform::Control* from = nullptr;
        for (int i = 0; i < 4; ++i) {
            from = platform::win32::NextStop(form, from, direction);
            names += (from ? from->Name() : "-") + " ";
        }
        return names;
    };
    EXPECT_EQ(round(Direction::Forward), "Text &First Button Text ");
    EXPECT_EQ(platform::win32::NextStop(form, &panel, Direction::Forward), &first);
    EXPECT_EQ(ControlOfAccessKey(form, U'f'), &first);
    EXPECT_EQ(ControlOfAccessKey(form, U'U'), &button);
    for (const char32_t letter : {U't', U'd', U'&', U'\0'})
        EXPECT_EQ(ControlOfAccessKey(form, letter), nullptr);
    second.SetValue(true);
    EXPECT_EQ(round(Direction::Backward), "Button &Second Text Button ");
    second.SetEnabled(false);
    EXPECT_EQ(NextOption(form, first, Direction::Forward), &third);
    EXPECT_EQ(NextOption(form, third, Direction::Forward), &first);
    EXPECT_EQ(NextOption(form, first, Direction::Backward), &third);
    panel.SetVisible(false);
    EXPECT_EQ(ControlOfAccessKey(form, U'f'), nullptr);
    button.SetEnabled(false);
    EXPECT_EQ(round(Direction::Forward), "Text Text Text Text ");
    text.SetEnabled(false);
    EXPECT_EQ(round(Direction::Forward), "- - - - ");
}

}  // namespace
