#include "platform/win32/native_control.h"

#include <commctrl.h>

#include "platform/win32/native_button.h"
#include "platform/win32/native_combo_box.h"
#include "platform/win32/native_list_box.h"
#include "platform/win32/native_scroll_bar.h"
#include "platform/win32/native_text_box.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr UINT_PTR kSubclassId = 1;
constexpr wchar_t kSelfProperty[] = L"VarnelControl";

NativeControl* SelfOf(HWND window) {
    return static_cast<NativeControl*>(::GetPropW(window, kSelfProperty));
}

}  // namespace

NativeControl::NativeControl(Control& control, FormContext& context, HWND parent, int id,
                             const Kind& kind)
    : context_(context), control_(control) {
    window_ = ::CreateWindowExW(kind.ExtendedStyle, kind.WindowClass, L"",
                                WS_CHILD | WS_CLIPSIBLINGS | kind.Style, 0, 0, 0, 0, parent,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                ::GetModuleHandleW(nullptr), nullptr);
    ::SetPropW(window_, kSelfProperty, this);
    ::SetWindowSubclass(window_, &Procedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
}

NativeControl::~NativeControl() {
    ::RemovePropW(window_, kSelfProperty);
    ::RemoveWindowSubclass(window_, &Procedure, kSubclassId);
}

NativeControl* NativeControl::Of(HWND window) {
    NativeControl* self = SelfOf(window);
    return self ? self : SelfOf(::GetParent(window));
}

void NativeControl::Update() {
    const HFONT font = context_.Lettering->Get(control_.Bold());
    if (font != font_) Send(WM_SETFONT, reinterpret_cast<WPARAM>(font_ = font), TRUE);
    const RECT area = context_.Scaling.Pixels(control_.Place());
    if (!::EqualRect(&area, &area_))
        Move(area_ = area);  // after the font: it changes a combo's height
    UpdateContent();
    if (enabled_ != control_.Enabled()) ::EnableWindow(window_, enabled_ = control_.Enabled());
    if (back_ != control_.BackColor() || fore_ != control_.ForeColor()) {
        back_ = control_.BackColor();
        fore_ = control_.ForeColor();
        ::InvalidateRect(window_, nullptr, TRUE);
    }
    if (zOrder_ != control_.ZOrder()) Raise();
    if (visible_ != control_.Visible())
        ::ShowWindow(window_, (visible_ = control_.Visible()) ? SW_SHOWNA : SW_HIDE);
}

void NativeControl::Rescale() {
    area_ = {};
    font_ = nullptr;
    Update();
}

void NativeControl::Raise() {
    zOrder_ = control_.ZOrder();
    ::SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void NativeControl::Move(const RECT& area) {
    ::SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left,
                   area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void NativeControl::OnCommand(WORD) {}

void NativeControl::OnScroll(WORD) {}

LRESULT CALLBACK NativeControl::Procedure(HWND window, UINT id, WPARAM word, LPARAM number,
                                          UINT_PTR, DWORD_PTR self) {
    auto& control = *reinterpret_cast<NativeControl*>(self);
    FormContext& context = control.context_;
    const Result result = Guarded(context, [&]() -> Result {
        if (context.Closed) return std::nullopt;
        return control.Handle({id, word, number});
    });
    return result ? *result : ::DefSubclassProc(window, id, word, number);
}

Result NativeControl::Handle(const WindowMessage& message) {
    if (const Result result = OnMessage(message)) return result;
    if (context_.Closed) return std::nullopt;
    switch (message.Id) {
        case WM_MOUSEMOVE:
            control_.PointerMove(context_.Scaling.Twips(message.Point()));
            break;
        case WM_LBUTTONDOWN:
            control_.MouseDown();
            break;
        case WM_LBUTTONUP:
            control_.MouseUp();
            break;
        case WM_MOUSEWHEEL:
            if (KeepsWheel()) return std::nullopt;
            return ::SendMessageW(::GetAncestor(window_, GA_ROOT), WM_MOUSEWHEEL, message.Word,
                                  message.Long);
        default:
            return std::nullopt;
    }
    context_.AfterEvent();
    return std::nullopt;
}

Result NativeControl::OnMessage(const WindowMessage&) {
    return std::nullopt;
}

std::string NativeControl::WindowText() const {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window_)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextW(window_, text.data(), static_cast<int>(text.size()))));
    return Narrow(text);
}

void NativeControl::ShowText(const std::string& text) const {
    if (WindowText() != text) ::SetWindowTextW(window_, Wide(text).c_str());
}

std::unique_ptr<NativeControl> MakeNativeControl(Control& control, FormContext& context,
                                                 HWND parent, int id) {
    switch (control.Kind()) {
        case ControlKind::Button:
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
            return std::make_unique<NativeButton>(control, context, parent, id);
        case ControlKind::TextBox:
            return std::make_unique<NativeTextBox>(static_cast<TextBox&>(control), context, parent,
                                                   id);
        case ControlKind::ComboBox:
            return std::make_unique<NativeComboBox>(static_cast<ComboBox&>(control), context,
                                                    parent, id);
        case ControlKind::ListBox:
            return std::make_unique<NativeListBox>(static_cast<ListBox&>(control), context, parent,
                                                   id);
        case ControlKind::ScrollBar:
            return std::make_unique<NativeScrollBar>(static_cast<ScrollBar&>(control), context,
                                                     parent, id);
        case ControlKind::Label:
        case ControlKind::Image:
        case ControlKind::Picture:
            return nullptr;
    }
    return nullptr;
}

}  // namespace platform::win32
