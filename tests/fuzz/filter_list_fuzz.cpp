// The file filter's dialog: a list that is typed, one that is pasted. The first line of the input
// is typed, the rest is pasted.
#include <algorithm>
#include <set>

#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"
#include "rules/filter_dialog.h"

void fuzzing::Examine(const std::string& input) {
    rules::FileFilter filter;
    platform::headless::Host host;
    platform::headless::Dialogs dialogs;
    platform::Form owner("FormMain");
    rules::FilterDialog dialog(filter, host, dialogs, "Varnel");
    // Opens it, fills the box, clicks Add and OK. The filter afterwards.
    const auto edit = [&](auto fillBox) {
        std::string list;
        host.OnModal = [&](platform::Form&) {
            fillBox(dialog.TextAddto);
            dialog.Command1.Click();
            std::set<std::string> different{""};
            for (const std::string& entry : dialog.List1.Entries()) {
                Require(different.insert(entry).second, "no entry is there twice, none is empty");
                list += '/' + entry;
            }
            dialog.CommandOK.Click();
        };
        dialog.Edit(owner);
        Require(filter.FilterExtensions == list, "OK makes the filter the list");
        return list;
    };
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string typed = edit([&](auto& box) { box.Type(input.substr(0, end)); });
    Require(typed.find_first_not_of("/abcdefghijklmnopqrstuvwxyz0123456789") == typed.npos,
            "what is typed becomes lower-case letters and digits");
    edit([&](auto& box) { box.Paste(input.substr(end)); });
    const auto nothing = [](auto&) {};
    const std::string parted = edit(nothing);  // makes two of a pasted entry with a slash
    Require(edit(nothing) == parted, "opening and OK change nothing");
}
