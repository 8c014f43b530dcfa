#pragma once

#include "platform/colour.h"

#include <QLabel>

namespace ovrano {

/// A label whose background shows a colour, whatever the desktop's theme. Its accessible description tells
/// the colour in words.
class ColourBox : public QLabel {
    Q_OBJECT
    Q_PROPERTY(int BackColor READ BackColor WRITE setBackColor NOTIFY BackColorChanged)

public:
    explicit ColourBox(const QString& name, Colour colour, QWidget* parent = nullptr);

    Colour BackColor() const { return m_colour; }
    void setBackColor(Colour colour);

    /// From now on the text is black or white, whichever is read better on the colour.
    void keepCaptionReadable();

Q_SIGNALS:
    void BackColorChanged(int colour);

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Draws the label's text over the colour.
    virtual void paintCaption(QPaintEvent* event) { QLabel::paintEvent(event); }

private:
    Colour m_colour;
};

} // namespace ovrano
