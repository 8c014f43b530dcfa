#pragma once

#include <QLabel>

namespace ovrano {

/// A label for a file's path: its text stays whole, and what is too long for its width is shown shortened in
/// the middle, with the whole path as tooltip.
class PathLabel : public QLabel {
    Q_OBJECT

public:
    PathLabel(const QString& name, QWidget* parent);

    /// As much of the text as fits.
    QString shownText() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ovrano
