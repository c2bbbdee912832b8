#include <string>

#include <gtest/gtest.h>

#include "platform/win32/tab_order.h"

namespace {

using platform::win32::ControlOfAccessKey;
using platform::win32::Direction;
using platform::win32::NextOption;

class TabOrderTest : public ::testing::Test {
  protected:
    TabOrderTest() {
        form_.Add(label_, "Label", {});
        form_.Add(text_, "Text", {});
        form_.Add(panel_, "Panel", {});
        form_.Add(first_, "First", {}, &panel_);
        form_.Add(second_, "Second", {}, &panel_);
        form_.Add(third_, "Third", {}, &panel_);
        form_.Add(button_, "Button", {});
        platform::OptionButton::Group({&first_, &second_, &third_});
    }

    std::string Round(Direction direction, const platform::Control* from = nullptr) const {
        std::string names;
        for (int i = 0; i < 4; ++i) {
            from = platform::win32::NextStop(form_, from, direction);
            names += (from ? from->Name() : "-") + " ";
        }
        return names;
    }

    platform::Form form_{"F"};
    platform::Label label_{"&Text"};
    platform::TextBox text_;
    platform::Picture panel_;
    platform::OptionButton first_{"&First"}, second_{"&Second"}, third_{"Third"};
    platform::Button button_{"R&&D b&utton"};
};

TEST_F(TabOrderTest, StopsAreWhatCanBeReachedAndAGroupOfOptionsIsOne) {
    EXPECT_EQ(Round(Direction::Forward), "Text First Button Text ");
    EXPECT_EQ(Round(Direction::Forward, &panel_), "First Button Text First ") << "from no stop";
    second_.SetValue(true);
    EXPECT_EQ(Round(Direction::Backward), "Button Second Text Button ");
    panel_.SetVisible(false);
    EXPECT_EQ(Round(Direction::Forward), "Text Button Text Button ");
    button_.SetEnabled(false);
    text_.SetEnabled(false);
    EXPECT_EQ(Round(Direction::Forward), "- - - - ");
}

TEST_F(TabOrderTest, ArrowsGoRoundTheGroup) {
    second_.SetEnabled(false);
    EXPECT_EQ(NextOption(form_, first_, Direction::Forward), &third_);
    EXPECT_EQ(NextOption(form_, third_, Direction::Forward), &first_);
    EXPECT_EQ(NextOption(form_, first_, Direction::Backward), &third_);
}

TEST_F(TabOrderTest, AccessKeysAreMarkedInCaptions) {
    EXPECT_EQ(ControlOfAccessKey(form_, U'f'), &first_);
    EXPECT_EQ(ControlOfAccessKey(form_, U'U'), &button_);
    for (const char32_t letter : {U't', U'd', U'&', U'\0'})
        EXPECT_EQ(ControlOfAccessKey(form_, letter), nullptr);
    panel_.SetVisible(false);
    EXPECT_EQ(ControlOfAccessKey(form_, U'f'), nullptr);
}

}  // namespace
