#include "platform/freename.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

namespace ovrano {

std::error_code renameToFree(const std::filesystem::path& from, const std::filesystem::path& to) {
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    if (errno != EINVAL && errno != ENOSYS)
        return {errno, std::generic_category()};
#endif
    std::error_code code;
    if (std::filesystem::exists(std::filesystem::symlink_status(to, code)))
        return std::make_error_code(std::errc::file_exists);
    std::filesystem::rename(from, to, code);
    return code;
}

} // namespace ovrano
