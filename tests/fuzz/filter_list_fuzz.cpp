// The file filter's dialog: a list that is typed, one that is pasted. The first line of the input
// is typed, the rest is pasted.
#include <algorithm>
#include <cassert>
#include <set>

#include "platform/headless/headless_host.h"
#include "rules/filter_dialog.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
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
            const std::vector<std::string>& entries = dialog.List1.Entries();
            assert(std::set(entries.begin(), entries.end()).size() == entries.size());
            for (const std::string& entry : entries) {
                assert(entry != "");
                list += '/' + entry;
            }
            dialog.CommandOK.Click();
        };
        dialog.Edit(owner);
        assert(filter.FilterExtensions == list);
        return list;
    };
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string typed = edit([&](auto& box) { box.Type(input.substr(0, end)); });
    assert(typed.find_first_not_of("/abcdefghijklmnopqrstuvwxyz0123456789") == typed.npos);
    edit([&](auto& box) { box.Paste(input.substr(end)); });
    const auto nothing = [](auto&) {};
    const std::string parted = edit(nothing);  // makes two of a pasted entry with a slash
    assert(edit(nothing) == parted);           // opening and OK change nothing
    return 0;
}
