// The four labels above the grid: each counts a list of the comparison and shows it when clicked;
// after a synchronisation they count and show its results.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/forms.h"

namespace grid {

struct CategoryControls {
    platform::Label LabelNewFile{"New Files ( 0 )"};
    platform::Label LabelChgFile{"Modified Files ( 0 )"};
    platform::Label LabelNewChgFile{"New and Modified Files ( 0 )"};
    platform::Label LabelAllFile{"Unchanged Files ( 0 )"};
    // The frame around them: the pointer on it ends their highlight.
    platform::Label Label5, Label6, Label7, Label8, Label10, Label11, Label12;
};

// What the labels need of whoever shows the views.
class CategoryOwner {
  public:
    virtual ~CategoryOwner() = default;
    // Shows a view from its first row, the scroll bar set to its length.
    virtual void ShowFromStart(std::string_view viewCode) = 0;
};

class CategoryLabels {
  public:
    // `LabelFileFilter` is highlighted like the four.
    CategoryLabels(CategoryControls& controls, platform::Label& LabelFileFilter,
                   CategoryOwner& owner);

    // The five switch labels blue and not bold.
    void RestoreColors();

    static constexpr platform::Color kRestedColor = 0xFF0000;   // blue, 0x00BBGGRR
    static constexpr platform::Color kPointedColor = 0x0000FF;  // red

  private:
    void Highlight(platform::Label& label);

    CategoryControls& controls_;
    platform::Label& labelFileFilter_;
    CategoryOwner& owner_;
};

}  // namespace grid
