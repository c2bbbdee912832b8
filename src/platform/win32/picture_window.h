// A picture: a framed child window that carries controls of its own.
#pragma once

#include <memory>

#include "platform/win32/native_control.h"
#include "platform/win32/surface.h"

namespace platform::win32 {

class PictureWindow : public NativeControl {
  public:
    PictureWindow(Picture& picture, FormContext& context, HWND parent, int id);

    Surface& Area() { return surface_; }

    void Rescale() override;

  protected:
    void UpdateContent() override;
    Result OnMessage(const WindowMessage& message) override;

  private:
    Result OnCalculateSize(const WindowMessage& message);
    Result OnPaintFrame(const WindowMessage& message);

    static const MessageEntry<PictureWindow> kHandlers[];

    Surface surface_;
    Color back_;
};

}  // namespace platform::win32
