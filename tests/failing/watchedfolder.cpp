#include "failing/watchedfolder.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace ovrano::failing {

namespace {

WatchedFolder* watched = nullptr;

} // namespace

WatchedFolder::WatchedFolder(std::string folder, Decide decide)
    : m_folder(std::move(folder))
    , m_decide(std::move(decide)) {
    watched = this;
}

WatchedFolder::~WatchedFolder() {
    watched = nullptr;
}

WatchedFolder* WatchedFolder::current() {
    return watched && !watched->m_deciding ? watched : nullptr;
}

bool WatchedFolder::concerns(const char* path) const {
    return path && std::string(path).compare(0, m_folder.size(), m_folder) == 0;
}

bool WatchedFolder::concerns(int descriptor) const {
    return !pathOf(descriptor).empty();
}

void WatchedFolder::opened(int descriptor, const char* path) {
    if (descriptor >= 0 && static_cast<std::size_t>(descriptor) < m_paths.size())
        m_paths[static_cast<std::size_t>(descriptor)] = path;
}

void WatchedFolder::closed(int descriptor) {
    opened(descriptor, "");
}

std::string WatchedFolder::pathOf(int descriptor) const {
    const auto index = static_cast<std::size_t>(descriptor);
    return descriptor >= 0 && index < m_paths.size() ? m_paths[index] : std::string();
}

Outcome WatchedFolder::decide(Step step) {
    m_steps.push_back(std::move(step));
    if (!m_decide)
        return {};
    m_deciding = true;
    const Outcome outcome = m_decide(m_steps.back(), m_steps.size() - 1);
    m_deciding = false;
    return outcome;
}

void killProgram() {
    kill(getpid(), SIGKILL);
    std::abort(); // never reached
}

} // namespace ovrano::failing
