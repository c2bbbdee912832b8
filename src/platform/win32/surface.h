// The client area of a form or a picture: paints the windowless controls that lie on it, finds
// them under the pointer, and passes on what its child windows report.
#pragma once

#include <functional>
#include <vector>

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/form_context.h"
#include "platform/win32/label_painter.h"
#include "platform/win32/message_table.h"

namespace platform::win32 {

// Who is told of the pointer where no control lies.
struct Ground {
    std::function<Color()> BackColor;
    std::function<void(PointerPosition)> PointerMove;
    std::function<void()> MouseDown;
    std::function<void()> MouseUp;
    std::function<void()> Click;
};

class Surface {
  public:
    Surface(HWND window, FormContext& context, Ground ground);

    void Add(Control& control);

    // Invalidates where the control was painted last and where it is now, unless it looks the same.
    void Refresh(const Control& control);

    // After a change of scale or colours.
    void RefreshAll();

    Result Handle(const WindowMessage& message);

    HWND Window() const { return window_; }

  private:
    struct Piece {
        Control* Owner;
        int ZOrder;
        Look Shown;
    };

    void Sort();
    void Paint(HDC canvas, const RECT& area, HDC screen) const;
    Control* At(POINT point) const;
    bool OverPressed(POINT point) const;
    void Release(bool click);
    void Point(POINT point);

    Result OnPaint(const WindowMessage& message);
    Result OnEraseBackground(const WindowMessage& message);
    Result OnPrintClient(const WindowMessage& message);
    Result OnMouseMove(const WindowMessage& message);
    Result OnButtonDown(const WindowMessage& message);
    Result OnButtonUp(const WindowMessage& message);
    Result OnCaptureChanged(const WindowMessage& message);
    Result OnCommand(const WindowMessage& message);
    Result OnScroll(const WindowMessage& message);
    Result OnControlColor(const WindowMessage& message);

    static const MessageEntry<Surface> kHandlers[];

    HWND window_;
    FormContext& context_;
    Ground ground_;
    std::vector<Piece> pieces_;  // from back to front

    // What the pointer's button went down on: a control, or with none the ground.
    bool pressing_ = false;
    bool leftButton_ = false;
    Control* pressed_ = nullptr;
};

}  // namespace platform::win32
