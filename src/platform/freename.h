#pragma once

#include <filesystem>
#include <system_error>

namespace ovrano {

/// Renames a file where nothing has the new name yet, a link neither: otherwise the file keeps its name and
/// the result is file_exists. A file system that cannot promise this renames as it can.
std::error_code renameToFree(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace ovrano
