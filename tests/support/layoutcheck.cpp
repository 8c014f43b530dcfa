#include "support/layoutcheck.h"

#include "platform/colourbox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSizeGrip>

#include <algorithm>
#include <cmath>

namespace ovrano::testing {

namespace {

/// What a control fills of its parent: its margins are left to its neighbours.
QRect drawnArea(const QWidget& control) {
    return control.geometry().marginsRemoved(control.contentsMargins());
}

QString nameOf(const QWidget& control) {
    const QString name = control.objectName();
    return name.isEmpty() ? QLatin1String(control.metaObject()->className()) : name;
}

/// Pictures and what scrolls may be larger than the place through which they are seen.
bool mayBeCut(const QWidget& control) {
    const QWidget* parent = control.parentWidget();
    return parent && (parent->objectName() == QStringLiteral("picZ") ||
                      parent->objectName() == QStringLiteral("qt_scrollarea_viewport"));
}

bool showsText(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return (label && !label->text().isEmpty()) || (button && !button->text().isEmpty()) ||
           qobject_cast<const QComboBox*>(&control) ||
           (qobject_cast<const QLineEdit*>(&control) && !qobject_cast<const QComboBox*>(control.parent()));
}

double luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// Every control of a window that can be seen, but for the corner by which it is resized.
QList<const QWidget*> visibleParts(const QWidget& window) {
    QList<const QWidget*> parts;
    for (const QWidget* part : window.findChildren<QWidget*>())
        if (part->isVisible() && part->window() == &window && !qobject_cast<const QSizeGrip*>(part))
            parts.append(part);
    return parts;
}

/// What a control needs for its text.
QSize leastSize(const QWidget& part) {
    if (qobject_cast<const QLineEdit*>(&part))
        return {0, part.fontMetrics().height()}; // it scrolls
    const auto* button = qobject_cast<const QAbstractButton*>(&part);
    if (!button)
        return part.minimumSizeHint();
    const int icon = button->icon().isNull() ? 0 : button->iconSize().width();
    return {button->fontMetrics().horizontalAdvance(button->text()) + icon, button->fontMetrics().height()};
}

QString placeComplaint(const QWidget& part) {
    const QWidget& parent = *part.parentWidget();
    if (!mayBeCut(part) && !parent.rect().contains(part.geometry()))
        return QStringLiteral("%1 reaches out of %2").arg(nameOf(part), nameOf(parent));
    const QSize least = leastSize(part);
    if (showsText(part) && (part.width() < least.width() || part.height() < least.height()))
        return QStringLiteral("%1 is cut: %2 x %3 of %4 x %5")
            .arg(nameOf(part))
            .arg(part.width())
            .arg(part.height())
            .arg(least.width())
            .arg(least.height());
    return {};
}

} // namespace

QStringList layoutComplaints(const QWidget& window) {
    QStringList complaints;
    const QList<const QWidget*> parts = visibleParts(window);
    for (const QWidget* part : parts) {
        if (part->isWindow() || part->parentWidget()->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        if (const QString complaint = placeComplaint(*part); !complaint.isEmpty())
            complaints.append(complaint);
        for (const QWidget* other : parts)
            if (other < part && other->parentWidget() == part->parentWidget() && !mayBeCut(*part) &&
                drawnArea(*part).intersects(drawnArea(*other)))
                complaints.append(QStringLiteral("%1 lies over %2").arg(nameOf(*part), nameOf(*other)));
    }
    return complaints;
}

QStringList contrastComplaints(const QWidget& window) {
    constexpr double Readable = 4.5;
    QStringList complaints;
    for (const QWidget* part : visibleParts(window)) {
        if (!showsText(*part) || !part->isEnabled() || qobject_cast<const ColourBox*>(part))
            continue; // a box in a colour of the user's choice cares for its own text
        const QPalette palette = part->palette();
        const double seen =
            contrast(palette.color(part->foregroundRole()), palette.color(part->backgroundRole()));
        if (seen < Readable)
            complaints.append(QStringLiteral("%1 is hard to read: contrast %2").arg(nameOf(*part)).arg(seen));
    }
    return complaints;
}

} // namespace ovrano::testing
