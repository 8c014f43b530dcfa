#pragma once

#include <filesystem>
#include <system_error>

namespace ovrano {

/// Renames only if the new name is free (links count as taken); otherwise the file keeps its name and the
/// result is file_exists. On a file system without such an operation the check and the renaming are two
/// steps.
std::error_code renameToFree(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace ovrano
