// Forms and their controls as plain objects.
//
// Setting a property marks the control as changed and does nothing else; a form host brings the
// screen up to date at its own pace, so program logic never waits for it. Only what a user does
// (Click, Type, Pick, Scroll and so on, called by the host or by a test) runs an event slot;
// setting a property never does.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// 0x00BBGGRR, or 0x80000000 plus the index of a system colour.
using Color = std::uint32_t;

inline constexpr Color kWindowColor = 0x80000005;
inline constexpr Color kFaceColor = 0x8000000F;
inline constexpr Color kButtonTextColor = 0x80000012;

inline constexpr int kTwipsPerPixel = 15;  // at 96 dpi

// In twips, within the container (the form, or the picture that holds the control).
struct Place {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    bool operator==(const Place&) const = default;
};

// Where the pointer is in a control's own coordinates, in twips.
struct PointerPosition {
    int X = 0;
    int Y = 0;
};

enum class ControlKind {
    Label,
    Button,
    TextBox,
    ComboBox,
    CheckBox,
    OptionButton,
    ListBox,
    ScrollBar,
    Picture,  // a container
    Image,
};

enum class Alignment { Left, Right, Center };

class Control {
  public:
    explicit Control(ControlKind kind) : kind_(kind) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    ControlKind Kind() const { return kind_; }

    bool Visible() const { return visible_; }
    void SetVisible(bool visible) { Set(visible_, visible); }
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { Set(enabled_, enabled); }
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color color) { Set(backColor_, color); }
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color color) { Set(foreColor_, color); }
    bool Bold() const { return bold_; }
    void SetBold(bool bold) { Set(bold_, bold); }
    platform::Place Place() const { return place_; }
    void SetPlace(const platform::Place& place) { Set(place_, place); }
    void SetTop(int top);
    const std::string& ToolTip() const { return toolTip_; }
    void SetToolTip(std::string_view text) { SetText(toolTip_, text); }

    // The order among controls that overlap: higher is nearer to the user.
    int ZOrder() const { return zOrder_; }
    void BringToFront();

    // The fixed name, and the picture that holds the control (null: the form itself). Set by Form.
    const std::string& Name() const { return name_; }
    Control* Container() const { return container_; }

    // What the control says: caption or text.
    const std::string& ShownText() const { return text_; }

    // True when the control and all its containers are visible.
    bool Shown() const;

    // What the user does. Nothing happens on a control that is hidden or disabled.
    void Click();
    void PointerMove(PointerPosition position);
    void MouseDown();
    void MouseUp();

    std::function<void()> OnClick;
    std::function<void(PointerPosition)> OnPointerMove;
    std::function<void()> OnMouseDown;
    std::function<void()> OnMouseUp;

    // True once after a property has changed; asked by a host that brings the screen up to date.
    bool TakeChanged();

  protected:
    template <typename T>
    void Set(T& property, const T& value) {
        if (property == value) return;
        property = value;
        changed_ = true;
    }
    void SetText(std::string& property, std::string_view text) {
        if (property == text) return;
        property.assign(text);
        changed_ = true;
    }
    void MarkChanged() { changed_ = true; }

    // What a click does to the control itself before OnClick runs.
    virtual void ActOnClick() {}
    bool Reachable() const { return enabled_ && Shown(); }

    std::string text_;

  private:
    friend class Form;

    const ControlKind kind_;
    bool visible_ = true;
    bool enabled_ = true;
    bool bold_ = false;
    bool changed_ = true;
    Color backColor_ = kFaceColor;
    Color foreColor_ = kButtonTextColor;
    int zOrder_ = 0;
    platform::Place place_;
    std::string toolTip_;
    std::string name_;
    Control* container_ = nullptr;
};

class Captioned : public Control {
  public:
    Captioned(ControlKind kind, std::string_view caption) : Control(kind) { text_ = caption; }
    const std::string& Caption() const { return text_; }
    void SetCaption(std::string_view caption) { SetText(text_, caption); }
};

// Windowless: its container paints it and finds it under the pointer.
class Label : public Captioned {
  public:
    explicit Label(std::string_view caption = {}) : Captioned(ControlKind::Label, caption) {}

    Alignment Align() const { return align_; }
    void SetAlign(Alignment align) { Set(align_, align); }

    // A text too long for its place loses its middle, not its end.
    bool MiddleEllipsis() const { return middleEllipsis_; }
    void SetMiddleEllipsis(bool on) { Set(middleEllipsis_, on); }

    // Several lines, broken between words.
    bool Wrap() const { return wrap_; }
    void SetWrap(bool on) { Set(wrap_, on); }

  private:
    Alignment align_ = Alignment::Left;
    bool middleEllipsis_ = false;
    bool wrap_ = false;
};

class Button : public Captioned {
  public:
    explicit Button(std::string_view caption = {}) : Captioned(ControlKind::Button, caption) {}
};

class CheckBox : public Captioned {
  public:
    explicit CheckBox(std::string_view caption = {}) : Captioned(ControlKind::CheckBox, caption) {}
    bool Value() const { return value_; }
    void SetValue(bool value) { Set(value_, value); }

  protected:
    void ActOnClick() override { SetValue(!value_); }

  private:
    bool value_ = false;
};

// One of a group; choosing one releases the others.
class OptionButton : public Captioned {
  public:
    explicit OptionButton(std::string_view caption = {})
        : Captioned(ControlKind::OptionButton, caption) {}
    bool Value() const { return value_; }
    void SetValue(bool value);

    // Makes one group of these buttons.
    static void Group(const std::vector<OptionButton*>& buttons);

  protected:
    void ActOnClick() override { SetValue(true); }

  private:
    bool value_ = false;
    std::vector<OptionButton*> group_;
};

class TextBox : public Control {
  public:
    TextBox() : Control(ControlKind::TextBox) { SetBackColor(kWindowColor); }
    const std::string& Text() const { return text_; }
    void SetText(std::string_view text) { Control::SetText(text_, text); }
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly) { Set(readOnly_, readOnly); }

    // True when the box takes this key's character (a Unicode code point, or a control character
    // such as backspace). A swallowed key does nothing.
    bool Accepts(char32_t key) const { return !OnKeyPress || OnKeyPress(key); }
    std::function<bool(char32_t)> OnKeyPress;

    // The user types at the end of the text, key by key (a control character is no text); or
    // replaces the text by pasting.
    void Type(std::string_view asciiKeys);
    void Paste(std::string_view text);

  private:
    bool readOnly_ = false;
};

// A text field with a list to pick from.
class ComboBox : public Control {
  public:
    ComboBox() : Control(ControlKind::ComboBox) { SetBackColor(kWindowColor); }
    const std::string& Text() const { return text_; }
    void SetText(std::string_view text) { Control::SetText(text_, text); }

    const std::vector<std::string>& Entries() const { return entries_; }
    void AddEntry(std::string_view entry);
    void ClearEntries();  // the text goes too

    // The entry last selected, or -1. Selecting puts the entry's text into the field.
    int ListIndex() const { return listIndex_; }
    void Select(int index);

    // The user picks an entry or edits the field.
    void Pick(int index);
    void Edit(std::string_view text);

  private:
    std::vector<std::string> entries_;
    int listIndex_ = -1;
};

class ListBox : public Control {
  public:
    ListBox() : Control(ControlKind::ListBox) { SetBackColor(kWindowColor); }
    const std::vector<std::string>& Entries() const { return entries_; }
    void AddEntry(std::string_view entry);
    void RemoveEntry(int index);
    void ClearEntries();
    int ListIndex() const { return listIndex_; }  // -1: none
    void Select(int index);

  private:
    std::vector<std::string> entries_;
    int listIndex_ = -1;
};

// Values are 16 bits wide, as the rules of the scroll range assume.
class ScrollBar : public Control {
  public:
    ScrollBar() : Control(ControlKind::ScrollBar) {}
    int Minimum() const { return minimum_; }
    void SetMinimum(int minimum) { Set(minimum_, minimum); }
    int Maximum() const { return maximum_; }
    void SetMaximum(int maximum) { Set(maximum_, maximum); }
    int Value() const { return value_; }
    void SetValue(int value) { Set(value_, value); }
    int SmallChange() const { return smallChange_; }
    void SetSmallChange(int rows) { Set(smallChange_, rows); }
    int LargeChange() const { return largeChange_; }
    void SetLargeChange(int rows) { Set(largeChange_, rows); }

    // The user moves the bar; the value is kept within the range.
    void Scroll(int value);
    std::function<void()> OnChange;

  private:
    int minimum_ = 0;
    int maximum_ = 0;
    int value_ = 0;
    int smallChange_ = 1;
    int largeChange_ = 1;
};

class Picture : public Control {
  public:
    Picture() : Control(ControlKind::Picture) {}
};

// A small drawing; `Glyph` names it for the host.
class Image : public Control {
  public:
    Image() : Control(ControlKind::Image) {}
    std::string Glyph;
};

struct MenuItem {
    std::string Name;
    std::string Caption;  // "&" marks the access key; "-" is a separator
    std::function<void()> OnClick;
    std::vector<MenuItem> Items;
};

enum class ScrollKey { LineUp, LineDown, PageUp, PageDown, Home, End };

// A window. Owns nothing: controls are members of whoever drives them.
class Form {
  public:
    explicit Form(std::string_view name) : Name(name) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    // Puts a control on the form (or into `container`) under its fixed name. The order of adding
    // is the tab order.
    void Add(Control& control, std::string_view name, const Place& place,
             Control* container = nullptr);
    Control* Find(std::string_view name) const;
    const MenuItem* FindMenu(std::string_view name) const;

    const std::string Name;
    std::string Caption;
    Place Bounds;  // of the whole window, on the screen
    std::vector<Control*> Controls;
    std::vector<MenuItem> Menu;
    Button* DefaultButton = nullptr;  // Enter
    Button* CancelButton = nullptr;   // Esc

    std::function<void()> OnActivate;
    std::function<void(PointerPosition)> OnPointerMove;  // over the bare window
    std::function<void(ScrollKey)> OnScrollKey;
    std::function<void(int)> OnWheel;      // rows, positive is down
    std::function<bool()> OnCloseRequest;  // false: not now
};

// Makes forms visible and hands out what the user does.
class FormHost {
  public:
    virtual ~FormHost() = default;

    // The yield of long loops: brings the screen up to date and hands out waiting input. Costs
    // next to nothing when nothing can have happened.
    virtual void DoEvents() = 0;

    virtual void Show(Form& form) = 0;
    // Returns when the form has been unloaded.
    virtual void ShowModal(Form& form) = 0;
    virtual void Unload(Form& form) = 0;

    // The screen's size in twips.
    virtual int ScreenWidth() const = 0;
    virtual int ScreenHeight() const = 0;
};

}  // namespace platform
