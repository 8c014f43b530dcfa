#pragma once

#include "ui/ccontrolflater.h"

#include <QComboBox>
#include <QCursor>
#include <QFont>
#include <QImage>
#include <QPalette>
#include <QWidget>
#include <QtTest>

namespace ovrano {

/// A light theme with edges in grey and white. In all themes windows differ from buttons, so that what is
/// drawn in the colour of a button can be told from what is left out.
inline QPalette lightTheme() {
    QPalette palette(QColor(236, 233, 216), QColor(200, 210, 220));
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Dark, QColor(172, 168, 153));
    return palette;
}

inline QPalette darkTheme() {
    QPalette palette(QColor(53, 53, 53), QColor(40, 40, 60));
    palette.setColor(QPalette::Base, QColor(25, 25, 25));
    return palette;
}

/// Black, white and yellow; the face of a button is as black as the paper.
inline QPalette contrastTheme() {
    QPalette palette(Qt::black, QColor(0, 0, 60));
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::yellow);
    palette.setColor(QPalette::Light, Qt::white);
    palette.setColor(QPalette::Dark, QColor(128, 128, 0));
    return palette;
}

/// One row of test data for each theme.
inline void addThemes() {
    QTest::addColumn<QPalette>("theme");
    QTest::newRow("light") << lightTheme();
    QTest::newRow("dark") << darkTheme();
    QTest::newRow("high contrast") << contrastTheme();
}

/// A window beside which the pointer can rest.
class Form : public QWidget {
public:
    Form() {
        setGeometry(100, 100, 400, 300);
        QFont font(QStringLiteral("Liberation Sans"), 9);
        font.setStyleStrategy(QFont::NoAntialias); // the ink can be counted
        setFont(font);
        restPointer();
    }

    template<typename Control>
    Control* add(Control* control, const QRect& place) {
        control->setParent(this);
        control->setGeometry(place);
        return control;
    }

    bool appear() {
        show();
        if (!QTest::qWaitForWindowActive(this))
            return false;
        if (focusWidget())
            focusWidget()->clearFocus();
        return true;
    }

    static void restPointer() { QCursor::setPos(700, 700); }
};

/// Moves the pointer to a place on a widget, in its own coordinates.
inline void pointAt(const QWidget& widget, QPoint place) {
    QCursor::setPos(widget.mapToGlobal(place));
    QCoreApplication::processEvents();
}

inline QImage shot(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether a followed box is in a state soon.
inline bool becomes(const cControlFlater& flater, FlatState state) {
    return QTest::qWaitFor([&] { return flater.state() == state; });
}

/// Whether the pointer is soon not followed any more.
inline bool stopsFollowing(const cControlFlater& flater) {
    return QTest::qWaitFor([&] { return !flater.isFollowingPointer(); });
}

/// "" when an edge of one pixel is drawn just inside a rectangle; else the first pixel that is not.
inline QString edgeFault(const QImage& image, const QRect& rect, const QColor& topLeft,
                         const QColor& bottomRight) {
    const auto check = [&](QPoint at, const QColor& colour) {
        return image.pixelColor(at).rgb() == colour.rgb()
                   ? QString()
                   : QStringLiteral("(%1, %2) is %3, not %4")
                         .arg(at.x())
                         .arg(at.y())
                         .arg(image.pixelColor(at).name(), colour.name());
    };
    QStringList faults;
    for (int x = rect.left(); x < rect.right(); ++x)
        faults.append(check(QPoint(x, rect.top()), topLeft));
    for (int y = rect.top(); y < rect.bottom(); ++y)
        faults.append(check(QPoint(rect.left(), y), topLeft));
    for (int x = rect.left(); x <= rect.right(); ++x)
        faults.append(check(QPoint(x, rect.bottom()), bottomRight));
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        faults.append(check(QPoint(rect.right(), y), bottomRight));
    faults.removeAll(QString());
    return faults.isEmpty() ? QString() : faults.first();
}

} // namespace ovrano

/// Fails unless edgeFault() finds nothing.
#define COMPARE_EDGE(image, rect, topLeft, bottomRight)                                                      \
    QCOMPARE(ovrano::edgeFault(image, rect, topLeft, bottomRight), QString())
