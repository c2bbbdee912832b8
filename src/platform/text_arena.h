// Storage for many short texts that live and go together.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace platform {

// Keeps copies of texts, each followed by a NUL, at addresses that stay until the arena goes.
// A million names cost one allocation in thousands.
class TextArena {
  public:
    // The kept copy of `text`; its data() is NUL-terminated.
    std::string_view Keep(std::string_view text) {
        if (text.size() >= room_) AddBlock(text.size() + 1);
        char* copy = next_;
        std::memcpy(copy, text.data(), text.size());
        copy[text.size()] = '\0';
        next_ += text.size() + 1;
        room_ -= text.size() + 1;
        return {copy, text.size()};
    }

    // Gives every kept text back at once.
    void Clear() {
        blocks_.clear();
        next_ = nullptr;
        room_ = 0;
    }

  private:
    void AddBlock(std::size_t least) {
        const std::size_t size = least > kBlockSize ? least : kBlockSize;
        blocks_.push_back(std::make_unique_for_overwrite<char[]>(size));
        next_ = blocks_.back().get();
        room_ = size;
    }

    static constexpr std::size_t kBlockSize = 64 * 1024;
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* next_ = nullptr;
    std::size_t room_ = 0;
};

}  // namespace platform
