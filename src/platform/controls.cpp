#include "platform/controls.h"

#include "platform/numbers.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace ovrano {

namespace {

/// Rows that an event goes down in a list, 0 when it does not go through one.
int stepsDown(const QEvent& event) {
    if (event.type() == QEvent::Wheel) {
        const int turned = static_cast<const QWheelEvent&>(event).angleDelta().y();
        return turned == 0 ? 0 : (turned < 0 ? 1 : -1);
    }
    if (event.type() != QEvent::KeyPress)
        return 0;
    const auto& press = static_cast<const QKeyEvent&>(event);
    if (press.modifiers().testFlag(Qt::AltModifier)) // opens the list
        return 0;
    if (press.key() == Qt::Key_Down || press.key() == Qt::Key_PageDown)
        return 1;
    return press.key() == Qt::Key_Up || press.key() == Qt::Key_PageUp ? -1 : 0;
}

/// The row of the number that follows another one in an ascending list, downwards or upwards; -1 without.
int rowBeside(const QComboBox& box, double number, bool below) {
    const auto isBeyond = [&](int row) {
        const double listed = numericValue(box.itemText(row));
        return below ? listed > number : listed < number;
    };
    if (below) {
        for (int row = 0; row < box.count(); ++row)
            if (isBeyond(row))
                return row;
        return -1;
    }
    int row = box.count() - 1;
    while (row >= 0 && !isBeyond(row))
        --row;
    return row;
}

/// Lets a box go on from the number in its field rather than from the one last chosen.
class FromWhatIsShown : public QObject {
public:
    explicit FromWhatIsShown(QComboBox& box)
        : QObject(&box)
        , m_box(box) {
        box.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const int steps = stepsDown(*event);
        const QString shown = m_box.currentText();
        if (steps == 0 || shown.trimmed().isEmpty())
            return QObject::eventFilter(watched, event);
        const int row = m_box.findText(shown);
        if (row < 0)
            return goBeside(rowBeside(m_box, numericValue(shown), steps > 0));
        const QSignalBlocker quiet(m_box); // the number stays the same
        m_box.setCurrentIndex(row);
        return false;
    }

private:
    bool goBeside(int row) {
        if (row >= 0) {
            m_box.setCurrentIndex(row);
            Q_EMIT m_box.activated(row);
        }
        return true;
    }

    QComboBox& m_box;
};

} // namespace

void makeNumberBox(QComboBox& box) {
    makeEditable(box);
    box.setCompleter(nullptr);
    new FromWhatIsShown(box);
}

} // namespace ovrano
