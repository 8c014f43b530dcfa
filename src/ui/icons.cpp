#include "ui/icons.h"

#include <QEvent>
#include <QFile>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// Outside any namespace, as the macro asks for; a static library's resources are not found by themselves.
static void registerResources() {
    Q_INIT_RESOURCE(ui);
}

namespace ovrano {

namespace {

constexpr int IconSide = 20; // logical pixels

QByteArray drawing(const QString& name, const QColor& colour) {
    registerResources();
    QFile file(QStringLiteral(":/ovrano/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll().replace("#000000", colour.name().toLatin1());
}

QPixmap rendered(const QByteArray& svg, int factor) {
    QPixmap pixmap(IconSide * factor, IconSide * factor);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(svg).render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(factor);
    return pixmap;
}

QIcon toolIcon(const QString& name, const QPalette& palette) {
    QIcon icon;
    constexpr std::pair<QPalette::ColorGroup, QIcon::Mode> Looks[] = {{QPalette::Active, QIcon::Normal},
                                                                      {QPalette::Disabled, QIcon::Disabled}};
    for (const auto& [group, mode] : Looks) {
        const QByteArray svg = drawing(name, palette.color(group, QPalette::ButtonText));
        for (const int factor : {1, 2, 3})
            icon.addPixmap(rendered(svg, factor), mode);
    }
    return icon;
}

/// Redraws a button's icon when its palette changes.
class IconKeeper : public QObject {
public:
    IconKeeper(QAbstractButton& button, const QString& name)
        : QObject(&button)
        , m_button(button)
        , m_name(name) {
        m_button.setIconSize(QSize(IconSide, IconSide));
        m_button.installEventFilter(this);
        refresh();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange)
            refresh();
        return QObject::eventFilter(watched, event);
    }

private:
    void refresh() { m_button.setIcon(toolIcon(m_name, m_button.palette())); }

    QAbstractButton& m_button;
    QString m_name;
};

} // namespace

void setToolIcon(QAbstractButton& button, const QString& name) {
    new IconKeeper(button, name); // owned by the button
}

} // namespace ovrano
