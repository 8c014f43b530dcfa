#pragma once

#include <QToolButton>

namespace ovrano {

/// A picture that is pressed like a button and may serve as a toggle: Appearance is 1 (raised, on) or
/// 0 (flat, off). Pressing it changes nothing by itself; the handler of clicked() decides.
class ImageButton : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance NOTIFY AppearanceChanged)

public:
    /// The tooltip is the accessible name, too.
    ImageButton(const QString& name, const QString& toolTip, QWidget* parent = nullptr);

    int Appearance() const { return isChecked() ? 1 : 0; }
    void setAppearance(int appearance);
    bool isOn() const { return isChecked(); }

Q_SIGNALS:
    void AppearanceChanged(int appearance);

protected:
    void nextCheckState() override {}
};

} // namespace ovrano
