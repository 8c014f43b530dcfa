#pragma once

#include <QScrollArea>

namespace ovrano {

/// A column of controls as high as they are together; on a small screen it scrolls.
class SettingsColumn : public QScrollArea {
    Q_OBJECT

public:
    /// Takes the widget that holds the controls.
    explicit SettingsColumn(QWidget* controls, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    bool m_scrolls = false; // the column is lower than its controls, so that it needs room for a scroll bar
};

} // namespace ovrano
