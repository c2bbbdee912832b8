// The file operations of a synchronisation. None shows a message: whether a row succeeded is
// found out afterwards from the files themselves.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/forms.h"
#include "rules/file_filter.h"

namespace syncing {

class FileOperations {
  public:
    FileOperations(platform::FileSystem& files, platform::FormHost& host,
                   const rules::FileFilter& filter)
        : files_(files), host_(host), filter_(filter) {}

    // Copies one file, overwriting. False when the filter refuses it or the copy was not done.
    bool CopyOneFile(const std::string& from, const std::string& to);

    // Copies a file to the same relative place below the other root, making missing folders.
    // Both roots end in a separator; a file that does not lie below its root is not copied. False
    // when the copy was not done.
    bool CopyToCounterpart(const std::string& sourcePath, const std::string& sourceRoot,
                           const std::string& destinationRoot);

    // Creates every folder between the root and the file named by `destinationPath`.
    void EnsureFolders(const std::string& destinationRoot, const std::string& destinationPath);

    // One level. An error, such as that it exists, is ignored.
    void CreateOneFolder(const std::string& folderPath);

  private:
    platform::FileSystem& files_;
    platform::FormHost& host_;
    const rules::FileFilter& filter_;
};

}  // namespace syncing
