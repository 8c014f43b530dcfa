#pragma once

#include "document/workpicture.h"

#include <utility>
#include <vector>

namespace ovrano {

/// The work picture and its companions as a command finds them, for the command that fails halfway. Keeping
/// them costs no pixels but those that the command gives up meanwhile, and putting them back costs none.
class KeptWork {
public:
    explicit KeptWork(WorkPicture& work);
    void putBack();

private:
    WorkPicture& m_work;
    std::vector<std::pair<Surface*, Surface::Contents>> m_surfaces;
    bool m_imageModified;
    bool m_undoAvailable;
};

} // namespace ovrano
