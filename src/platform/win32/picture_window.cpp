#include "platform/win32/picture_window.h"

namespace platform::win32 {

namespace {

constexpr wchar_t kClassName[] = L"VarnelPicture";
constexpr int kFrame = 1;  // pixel

const wchar_t* RegisteredClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kClassName;
    ::RegisterClassExW(&windowClass);  // fails when it is registered already
    return kClassName;
}

}  // namespace

const MessageEntry<PictureWindow> PictureWindow::kHandlers[] = {
    {WM_NCCALCSIZE, &PictureWindow::OnCalculateSize},
    {WM_NCPAINT, &PictureWindow::OnPaintFrame},
};

PictureWindow::PictureWindow(Picture& picture, FormContext& context, HWND parent, int id,
                             bool framed)
    : NativeControl(picture, context, parent, id,
                    {RegisteredClass(), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}),
      framed_(framed),
      surface_(Window(), context,
               {[&picture] { return picture.BackColor(); },
                [&picture](PointerPosition position) { picture.PointerMove(position); },
                [&picture] { picture.MouseDown(); }, [&picture] { picture.MouseUp(); },
                [&picture] { picture.Click(); }}),
      back_(picture.BackColor()) {}

void PictureWindow::UpdateContent() {
    if (back_ == Owner().BackColor()) return;
    back_ = Owner().BackColor();
    ::InvalidateRect(Window(), nullptr, FALSE);
}

void PictureWindow::Rescale() {
    NativeControl::Rescale();
    surface_.RefreshAll();
}

// The surface handles what a plain native control would hand to its Control: both would tell the
// picture of the pointer.
Result PictureWindow::OnMessage(const WindowMessage& message) {
    if (const Result result = Dispatch(*this, kHandlers, message)) return result;
    return surface_.Handle(message);
}

Result PictureWindow::OnCalculateSize(const WindowMessage& message) {
    if (!framed_) return std::nullopt;
    ::InflateRect(reinterpret_cast<RECT*>(message.Long), -kFrame, -kFrame);
    return 0;
}

Result PictureWindow::OnPaintFrame(const WindowMessage&) {
    if (!framed_) return std::nullopt;
    RECT frame;
    ::GetWindowRect(Window(), &frame);
    ::OffsetRect(&frame, -frame.left, -frame.top);
    const HDC canvas = ::GetWindowDC(Window());
    ::FrameRect(canvas, &frame, ::GetSysColorBrush(COLOR_3DSHADOW));
    ::ReleaseDC(Window(), canvas);
    return 0;
}

}  // namespace platform::win32
