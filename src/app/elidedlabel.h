#pragma once

#include <QLabel>

namespace ovrano {

/// A one-line label whose text stays whole: what is too long for its width is shown shortened, with the whole
/// text as tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    /// `mode` says where a text is shortened.
    ElidedLabel(const QString& name, Qt::TextElideMode mode, QWidget* parent);

    /// As much of the text as fits.
    QString shownText() const;

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode m_mode;
};

} // namespace ovrano
