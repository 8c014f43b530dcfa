#pragma once

#include <QProxyStyle>
#include <QStyleOption>
#include <QWidget>

namespace ovrano {

/// Draws the program's flat controls: text boxes and lists with a thin static edge (the shadow at the top
/// left, the highlight at the bottom right), buttons with the same edge around a face of their own, and combo
/// boxes in the state that their cControlFlater tells. Tool buttons that are on sink like other buttons, and
/// what shows a state or can be dragged is outlined in palettes of high contrast. Sizes and everything else
/// come from the desktop's style.
///
/// There is one such style. Only the flattened controls get it, so that the toolkit's own dialogs keep the
/// desktop's look. When the application's style changes, it stays and takes the new one as its base.
class FlatStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// Made when first asked for; it goes when the application's own style goes for good, after all windows.
    static FlatStyle& instance();

    /// Gives a control this style.
    void dress(QWidget& control);
    bool isWornBy(const QWidget& control) const { return control.style() == this; }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl subControl,
                         const QWidget* widget) const override;

private:
    FlatStyle();
    /// Has the base changed when the application's style is replaced.
    void followApplication();
    /// Lays this style over one of the same kind as the application's, for all controls that wear it.
    void changeBase();
    /// Where a flat combo box has its drop-down button.
    QRect comboButton(const QStyleOptionComboBox& box, const QWidget* widget) const;
};

} // namespace ovrano
