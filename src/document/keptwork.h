#pragma once

#include "document/workpicture.h"

#include <utility>
#include <vector>

namespace ovrano {

/// The work picture and its companions at the start of a command, to be put back if it fails halfway. They
/// share their pixels with the originals, so keeping and putting back copies none.
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
