#include "platform/screen.h"

#include <QCursor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QRegularExpression>

namespace ovrano {

void setScreenMousePointer(MousePointer pointer) {
    const bool waiting = screenMousePointer() == MousePointer::Hourglass;
    if (pointer == MousePointer::Hourglass && !waiting)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (pointer != MousePointer::Hourglass && waiting)
        QGuiApplication::restoreOverrideCursor();
}

MousePointer screenMousePointer() {
    const QCursor* over = QGuiApplication::overrideCursor();
    return over && over->shape() == Qt::WaitCursor ? MousePointer::Hourglass : MousePointer::Default;
}

QStringList screenFonts() {
    static const QRegularExpression foundry(QStringLiteral(R"( \[[^\]]*\]$)"));
    QStringList plain;
    for (QString family : QFontDatabase::families())
        plain.append(family.remove(foundry));
    plain.removeDuplicates();
    return plain;
}

} // namespace ovrano
