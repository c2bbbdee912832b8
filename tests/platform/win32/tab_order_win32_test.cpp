#include <string>

#include <gtest/gtest.h>

#include "platform/win32/tab_order.h"

namespace platform::win32 {
namespace {

TEST(TabOrderTest, StopsOptionsAndAccessKeysAreWhatCanBeReached) {
    Form form{"F"};
    Label label{"&Text"};
    TextBox text;
    Picture panel;
    OptionButton first{"&First"}, second{"&Second"}, third{"Third"};
    Button button{"R&&D b&utton"};
    form.Add(label, "Label", {});
    form.Add(text, "Text", {});
    form.Add(panel, "Panel", {});
    for (OptionButton* option : {&first, &second, &third})
        form.Add(*option, option->Caption(), {}, &panel);
    form.Add(button, "Button", {});
    OptionButton::Group({&first, &second, &third});
    const auto round = [&](Direction direction) {
        std::string names;
        const Control* from = nullptr;
        for (int i = 0; i < 4; ++i) {
            from = NextStop(form, from, direction);
            names += (from ? from->Name() : "-") + " ";
        }
        return names;
    };
    EXPECT_EQ(round(Direction::Forward), "Text &First Button Text ");
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
}  // namespace platform::win32
