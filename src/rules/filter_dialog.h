// The dialog "Edit File filter Rules" and the one-line description of the filter.
#pragma once

#include <string>
#include <string_view>

#include "platform/dialogs.h"
#include "platform/forms.h"
#include "rules/file_filter.h"

namespace rules {

// Says what the filter does, in the label's caption and tooltip.
void DescribeFileFilter(const FileFilter& filter, platform::Label& label);

// Edits a filter. The filter changes only when the user presses OK with a list that makes sense.
class FilterDialog {
  public:
    FilterDialog(FileFilter& filter, platform::FormHost& host, platform::Dialogs& dialogs,
                 std::string applicationTitle);

    // Opens the dialog over `owner`; returns when the user has closed it.
    void Edit(const platform::Form& owner);

    platform::Form FormFilter{"FormFilter"};
    platform::OptionButton OptionOnly{"only copy the files with specific extensions:"};
    platform::OptionButton OptionExc{"Sync all excluding the files with specific extensions:"};
    platform::Label Label1{"File Extensions List:"};
    platform::ListBox List1;
    platform::Label Label2{"Add File Extension to the List:"};
    platform::Label Label3{"Type in multi extensions "};
    platform::Label Label4{"separated by comma"};
    platform::Label Label5{"( jpg,bmp,gif,psd )"};
    platform::TextBox TextAddto;
    platform::Button Command1{"Add  to >>"};
    platform::Button Command2{"<< Remove"};
    platform::Button CommandOK{"OK"};
    platform::Button Command3{"Cancel"};

  private:
    void PlaceControls();
    void ShowFilter();
    void AddEntries(std::string_view text, char separator, std::size_t mostPieces);
    void AddTyped();
    void RemoveSelected();
    void Accept();
    void Close() { host_.Unload(FormFilter); }

    FileFilter& filter_;
    platform::FormHost& host_;
    platform::Dialogs& dialogs_;
    const std::string applicationTitle_;
    bool filled_ = false;
};

}  // namespace rules
