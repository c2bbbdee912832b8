// The fonts of a window: the system's message font at the size that its monitor asks for.
#pragma once

#include <windows.h>

namespace platform::win32 {

class Fonts {
  public:
    explicit Fonts(int dpi);
    ~Fonts();
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    HFONT Get(bool bold) const { return bold ? bold_ : regular_; }

  private:
    HFONT regular_;
    HFONT bold_;
};

}  // namespace platform::win32
