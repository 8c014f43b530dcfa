#pragma once

#include <QSize>
#include <QString>

namespace ovrano {

/// The question asked before a picture larger than the work picture is pasted, in the words of one source.
struct PasteQuestion {
    QString work;   // introduces the width of the work picture
    QString pasted; // introduces that of the pasted picture
    QString reason;

    static PasteQuestion aboutClipboard();
    /// Speaks of the clipboard as well, on purpose.
    static PasteQuestion aboutFile();

    /// The whole text for two sizes in pixels; its lines are parted by "\r\n".
    QString text(QSize workSize, QSize pastedSize) const;
};

} // namespace ovrano
