#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace ovrano::failing {

/// What is asked of the system. Look is any question about a file, Outside all that would leave the program:
/// a connection, another program.
enum class Call { Look, Open, Read, Write, Permissions, Sync, Close, Rename, Remove, Outside };

struct Step {
    Call call = Call::Look;
    std::string path; // of what is renamed, the old name
    std::size_t bytes = 0;
};

/// How a call goes.
struct Outcome {
    int error = 0;                                        // that it fails with, in place of being done
    std::size_t mostBytes = static_cast<std::size_t>(-1); // a write takes no more
    bool isLast = false;                                  // the program is killed right after it
};

/// Hears of every call that concerns a folder (its files and the descriptors opened there) and decides how it
/// goes. There is one at a time. The test program itself stands between the libraries and the system for this
/// (watchedcalls.cpp); calls that the deciding function makes go through unseen.
class WatchedFolder {
public:
    using Decide = std::function<Outcome(const Step& step, std::size_t index)>;

    explicit WatchedFolder(std::string folder, Decide decide = nullptr);
    WatchedFolder(const WatchedFolder&) = delete;
    WatchedFolder& operator=(const WatchedFolder&) = delete;
    ~WatchedFolder();

    /// All that has happened so far.
    const std::vector<Step>& steps() const { return m_steps; }

    // For the calls.
    static WatchedFolder* current();
    bool concerns(const char* path) const;
    bool concerns(int descriptor) const;
    void opened(int descriptor, const char* path);
    void closed(int descriptor);
    std::string pathOf(int descriptor) const;
    Outcome decide(Step step);

private:
    static constexpr std::size_t MostDescriptors = 1024;

    const std::string m_folder;
    const Decide m_decide;
    std::vector<Step> m_steps;
    std::array<std::string, MostDescriptors> m_paths; // of open descriptors; empty for those elsewhere
    bool m_deciding = false;
};

/// The process ends at once, as by a kill that nothing can catch.
[[noreturn]] void killProgram();

} // namespace ovrano::failing
