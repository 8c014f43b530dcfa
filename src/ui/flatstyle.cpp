#include "ui/flatstyle.h"

#include "ui/ccontrolflater.h"
#include "ui/flatcombo.h"
#include "ui/flatpanels.h"
#include "ui/outlines.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPointer>
#include <QStyleFactory>

namespace ovrano {

namespace {

/// A style of its own, but of the kind that the application has; without a name it is the desktop's.
QStyle* styleLikeTheApplications() {
    return QStyleFactory::create(QApplication::style()->name());
}

} // namespace

FlatStyle& FlatStyle::instance() {
    static QPointer<FlatStyle> style;
    if (!style)
        style = new FlatStyle; // deleted in followApplication()
    return *style;
}

FlatStyle::FlatStyle()
    : QProxyStyle(styleLikeTheApplications()) {
    followApplication();
}

void FlatStyle::followApplication() {
    connect(QApplication::style(), &QObject::destroyed, this, [this] {
        if (QCoreApplication::closingDown())
            delete this;
        else
            changeBase();
    });
}

void FlatStyle::changeBase() {
    QWidgetList wearers;
    for (QWidget* widget : QApplication::allWidgets())
        if (isWornBy(*widget))
            wearers.append(widget);
    for (QWidget* widget : wearers)
        widget->setStyle(nullptr); // undoes what the former base has set
    setBaseStyle(styleLikeTheApplications());
    for (QWidget* widget : wearers)
        dress(*widget);
    followApplication();
}

void FlatStyle::dress(QWidget& control) {
    control.setStyle(this);
}

void FlatStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == PE_PanelButtonCommand || element == PE_PanelButtonTool)
        drawFlatButton(*painter, *option);
    else if (element == PE_PanelLineEdit && frame && frame->lineWidth > 0)
        drawFlatField(*painter, *frame);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox)
        outlineWhereNeeded(*painter, option->rect, *option);
}

void FlatStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element == CE_ShapedFrame && frame && frame->frameShape != QFrame::NoFrame)
        drawFlatListFrame(*painter, *frame);
    else if (element == CE_ComboBoxLabel && box && cControlFlater::of(widget)) {
        const QStyleOptionComboBox label = flatComboLabel(*box);
        QProxyStyle::drawControl(element, &label, painter, widget);
    } else
        QProxyStyle::drawControl(element, option, painter, widget);
}

void FlatStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* flater = control == CC_ComboBox && box ? cControlFlater::of(widget) : nullptr;
    if (!flater) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_ScrollBar)
            outlineWhereNeeded(*painter, subControlRect(control, option, SC_ScrollBarSlider, widget),
                               *option);
        else if (control == CC_Slider)
            for (const SubControl part : {SC_SliderGroove, SC_SliderHandle})
                outlineWhereNeeded(*painter, subControlRect(control, option, part, widget), *option);
        return;
    }
    drawFlatCombo(*painter, *box, comboButton(*box, widget), flater->state());
    if (!box->editable && box->state.testFlag(State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(*box);
        focus.rect = subControlRect(control, option, SC_ComboBoxEditField, widget);
        focus.backgroundColor = box->palette.color(QPalette::Base);
        proxy()->drawPrimitive(PE_FrameFocusRect, &focus, painter, widget);
    }
}

QRect FlatStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl subControl, const QWidget* widget) const {
    const QRect rect = QProxyStyle::subControlRect(control, option, subControl, widget);
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control != CC_ComboBox || !box || !cControlFlater::of(widget))
        return rect;
    if (subControl == SC_ComboBoxArrow)
        return flatComboArrow(box->rect, rect);
    return subControl == SC_ComboBoxEditField ? flatComboField(*box, comboButton(*box, widget), rect) : rect;
}

QRect FlatStyle::comboButton(const QStyleOptionComboBox& box, const QWidget* widget) const {
    return flatComboButton(box.rect,
                           QProxyStyle::subControlRect(CC_ComboBox, &box, SC_ComboBoxArrow, widget));
}

} // namespace ovrano
