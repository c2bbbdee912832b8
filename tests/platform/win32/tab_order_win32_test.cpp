#include <string>

#include <gtest/gtest.h>

#include "platform/win32/tab_order.h"

namespace {

using platform::win32::ControlOfAccessKey;
using platform::win32::Direction;
using platform::win32::NextOption;
using platform::win32::NextStop;

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
        form_.Add(bar_, "Bar", {});
        platform::OptionButton::Group({&first_, &second_, &third_});
    }

    std::string Round(Direction direction) const {
        std::string names;
        const platform::Control* stop = nullptr;
        for (int i = 0; i < 4; ++i) {
            stop = NextStop(form_, stop, direction);
            names += (stop ? stop->Name() : "-") + " ";
        }
        return names;
    }

    platform::Form form_{"F"};
    platform::Label label_{"&Text"};
    platform::TextBox text_;
    platform::Picture panel_;
    platform::OptionButton first_{"&First"}, second_{"&Second"}, third_{"Third"};
    platform::Button button_{"R&&D b&utton"};
    platform::ScrollBar bar_;
};

TEST_F(TabOrderTest, AGroupOfOptionsIsOneStop) {
    EXPECT_EQ(Round(Direction::Forward), "Text First Button Text ");
    second_.SetValue(true);
    EXPECT_EQ(Round(Direction::Forward), "Text Second Button Text ");
    EXPECT_EQ(Round(Direction::Backward), "Button Second Text Button ");
}

TEST_F(TabOrderTest, LeavesOutWhatCannotBeReached) {
    panel_.SetVisible(false);
    EXPECT_EQ(Round(Direction::Forward), "Text Button Text Button ");
    button_.SetEnabled(false);
    text_.SetEnabled(false);
    EXPECT_EQ(Round(Direction::Forward), "- - - - ");
}

TEST_F(TabOrderTest, GoesOnFromAControlThatIsNoStop) {
    EXPECT_EQ(NextStop(form_, &panel_, Direction::Forward), &first_);
    EXPECT_EQ(NextStop(form_, &panel_, Direction::Backward), &text_);
}

TEST_F(TabOrderTest, ArrowsGoRoundTheGroup) {
    second_.SetEnabled(false);
    EXPECT_EQ(NextOption(form_, first_, Direction::Forward), &third_);
    EXPECT_EQ(NextOption(form_, third_, Direction::Forward), &first_);
    EXPECT_EQ(NextOption(form_, first_, Direction::Backward), &third_);
}

TEST_F(TabOrderTest, AccessKeysAreMarkedInCaptions) {
    EXPECT_EQ(ControlOfAccessKey(form_, U'f'), &first_);
    EXPECT_EQ(ControlOfAccessKey(form_, U'S'), &second_);
    EXPECT_EQ(ControlOfAccessKey(form_, U'u'), &button_);
    for (const char32_t letter : {U't', U'd', U'&', U'\0'})
        EXPECT_EQ(ControlOfAccessKey(form_, letter), nullptr);
    panel_.SetVisible(false);
    EXPECT_EQ(ControlOfAccessKey(form_, U'f'), nullptr);
}

}  // namespace
