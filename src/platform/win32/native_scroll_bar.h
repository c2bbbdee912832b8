// A vertical scroll bar of its own.
#pragma once

#include <optional>

#include "platform/win32/native_control.h"

namespace platform::win32 {

class NativeScrollBar : public NativeControl {
  public:
    NativeScrollBar(ScrollBar& bar, FormContext& context, HWND parent, int id);

    void OnScroll(WORD code) override;

  protected:
    void UpdateContent() override;

  private:
    struct Range {
        int Minimum;
        int Maximum;
        int Page;
        int Value;
        bool operator==(const Range&) const = default;
    };
    std::optional<int> Target(WORD code) const;

    ScrollBar& bar_;
    std::optional<Range> shown_;  // as the window was last told
};

}  // namespace platform::win32
