#include "sync/file_operations.h"

#include "platform/paths.h"

namespace syncing {

bool FileOperations::CopyOneFile(const std::string& from, const std::string& to) {
    if (!rules::PassesCopyFilter(filter_, from)) return false;
    const bool copied = files_.CopyOver(from, to, [this] { host_.DoEvents(); }).Ok();
    host_.DoEvents();
    return copied;
}

// Only the leading root is taken off: its text may well occur again deeper in the path.
bool FileOperations::CopyToCounterpart(const std::string& sourcePath, const std::string& sourceRoot,
                                       const std::string& destinationRoot) {
    if (!rules::PassesCopyFilter(filter_, sourcePath)) return false;
    if (!sourcePath.starts_with(sourceRoot)) return false;
    const std::string destination = destinationRoot + sourcePath.substr(sourceRoot.size());
    if (CopyOneFile(sourcePath, destination)) return true;
    EnsureFolders(destinationRoot, destination);
    return CopyOneFile(sourcePath, destination);
}

void FileOperations::EnsureFolders(const std::string& destinationRoot,
                                   const std::string& destinationPath) {
    if (!destinationPath.starts_with(destinationRoot)) return;
    for (std::size_t end = destinationPath.find(platform::Separator, destinationRoot.size());
         end != std::string::npos; end = destinationPath.find(platform::Separator, end + 1)) {
        CreateOneFolder(destinationPath.substr(0, end));
        host_.DoEvents();
    }
}

void FileOperations::CreateOneFolder(const std::string& folderPath) {
    files_.CreateFolder(folderPath);
}

}  // namespace syncing
