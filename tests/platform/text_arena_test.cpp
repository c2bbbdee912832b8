#include "platform/text_arena.h"

#include <string>

#include <gtest/gtest.h>

TEST(TextArenaTest, KeptTextsStayWhereTheyAre) {
    platform::TextArena arena;
    std::vector<std::pair<std::string, const char*>> kept;
    for (const std::size_t size : {0, 65535, 65536, 1'000'000}) {
        for (std::size_t i = 0; i < 20'000; i += size + 1) {
            const std::string text(size, static_cast<char>('a' + i % 26));
            kept.emplace_back(text, arena.Keep(text).data());
        }
    }
    for (const auto& [text, copy] : kept) ASSERT_EQ(copy, text);
}
