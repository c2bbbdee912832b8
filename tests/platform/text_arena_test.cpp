#include "platform/text_arena.h"

#include <string>

#include <gtest/gtest.h>

TEST(TextArenaTest, KeptTextsStayWhereTheyAre) {
    platform::TextArena arena;
    std::vector<std::string> texts = {"", std::string("a\0b", 3), std::string(65535, 'x'),
                                      std::string(65536, 'y'), std::string(1'000'000, 'z')};
    for (std::size_t i = 0; i < 20'000; ++i) texts.push_back("name " + std::to_string(i));
    std::vector<std::string_view> kept;
    for (const std::string& text : texts) kept.push_back(arena.Keep(text));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        ASSERT_EQ(kept[i], texts[i]);
        ASSERT_EQ(kept[i].data()[kept[i].size()], '\0');
    }
}
