// A picture: a child window that carries controls of its own, within a frame; one that carries none
// is a plain area.
#pragma once

#include <memory>

#include "platform/win32/native_control.h"
#include "platform/win32/surface.h"

namespace platform::win32 {

class PictureWindow : public NativeControl {
  public:
    PictureWindow(Picture& picture, FormContext& context, HWND parent, int id, bool framed);

    Surface& Area() { return surface_; }

    void Rescale() override;

  protected:
    void UpdateContent() override;
    Result OnMessage(const WindowMessage& message) override;

  private:
    Result OnCalculateSize(const WindowMessage& message);
    Result OnPaintFrame(const WindowMessage& message);

    static const MessageEntry<PictureWindow> kHandlers[];

    const bool framed_;
    Surface surface_;
    Color back_;
};

}  // namespace platform::win32
