// The file filter: which extensions take part in a comparison and a synchronisation.
#pragma once

#include <string>
#include <string_view>

namespace rules {

struct FileFilter {
    // Every extension preceded by "/", lower case, no dots: "/jpg/bmp". Empty: no filter.
    std::string FilterExtensions;
    // True: only files of these extensions take part; false: all but these.
    bool FilterOnlyMode = false;
};

// What follows the last dot within the last ten bytes of `path`, in its own case; "XXXXXXXX" when
// there is none. The search does not stop at a separator. A name that ends in a dot has the empty
// extension.
std::string_view FileExtensionOf(std::string_view path);

// The rule of the comparison: the file's extension, as it is written, is looked for anywhere in the
// list's text. So "c" is found in a list that holds "doc", the empty extension in every list.
bool PassesFileFilter(const FileFilter& filter, std::string_view path);

// The rule of the copy: the same, but without regard to case.
bool PassesCopyFilter(const FileFilter& filter, std::string_view path);

}  // namespace rules
