#include "ui/flatten.h"

#include "ui/flatstyle.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace ovrano {

namespace {

using FlatCombos = std::vector<std::unique_ptr<cControlFlater>>;

FlatCombos& combos() {
    static FlatCombos list;
    return list;
}

bool isPartOfAnotherControl(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QLineEdit*>(parent) || qobject_cast<const QTabBar*>(parent);
}

bool hasIcons(const QComboBox& box) {
    for (int row = 0; row < box.count(); ++row)
        if (!box.itemIcon(row).isNull())
            return true;
    return false;
}

/// The name of a control's type; empty for what has none here.
QString typeNameOf(const QWidget& control) {
    const auto* tool = qobject_cast<const QToolButton*>(&control);
    if (qobject_cast<const QPushButton*>(&control) || (tool && !tool->autoRaise()))
        return QStringLiteral("CommandButton");
    if (qobject_cast<const QLineEdit*>(&control))
        return QStringLiteral("TextBox");
    if (qobject_cast<const QListView*>(&control))
        return QStringLiteral("ListBox");
    if (const auto* box = qobject_cast<const QComboBox*>(&control))
        return hasIcons(*box) ? QStringLiteral("ImageCombo") : QStringLiteral("ComboBox");
    return QString();
}

/// The form's controls, without their inner parts and without the controls of other windows.
QWidgetList controlsOf(const QWidget& form) {
    QWidgetList controls;
    for (QWidget* widget : form.findChildren<QWidget*>())
        if (widget->window() == form.window() && !isPartOfAnotherControl(*widget))
            controls.append(widget);
    return controls;
}

void forget(const cControlFlater* flater) {
    std::erase_if(combos(), [flater](const auto& kept) { return kept.get() == flater; });
}

void attachFlatCombo(QWidget& box) {
    if (cControlFlater::of(&box))
        return;
    auto flater = std::make_unique<cControlFlater>();
    flater->Attach(&box);
    QObject::connect(&box, &QObject::destroyed, flater.get(), [kept = flater.get()] { forget(kept); });
    combos().push_back(std::move(flater));
}

} // namespace

void SetStaticEdge(QWidget& control) {
    FlatStyle& style = FlatStyle::instance();
    if (!style.isWornBy(control))
        style.dress(control);
}

void FlattenControlsOfType(QWidget& form, const QString& typeName) {
    for (QWidget* control : controlsOf(form)) {
        const QString name = typeNameOf(*control);
        if (!name.isEmpty() && name.compare(typeName, Qt::CaseInsensitive) == 0)
            SetStaticEdge(*control);
    }
}

void FlattenButtonsAndTextBoxes(QWidget& form) {
    for (const QString& typeName : {QStringLiteral("CommandButton"), QStringLiteral("TextBox")})
        FlattenControlsOfType(form, typeName);
}

void AttachFlatCombos(QWidget& form) {
    const QWidgetList controls = controlsOf(form);
    combos().reserve(combos().size() + static_cast<std::size_t>(controls.size()));
    for (QWidget* control : controls) {
        const QString typeName = typeNameOf(*control);
        if (typeName == QStringLiteral("ComboBox") || typeName == QStringLiteral("ImageCombo"))
            attachFlatCombo(*control);
    }
}

void OutlineIndicators(QWidget& form) {
    for (QWidget* control : controlsOf(form))
        if (qobject_cast<QToolButton*>(control) || qobject_cast<QCheckBox*>(control) ||
            qobject_cast<QAbstractSlider*>(control))
            SetStaticEdge(*control);
}

void flattenForm(QWidget& form) {
    for (const QString& typeName :
         {QStringLiteral("commandbutton"), QStringLiteral("textbox"), QStringLiteral("listbox")})
        FlattenControlsOfType(form, typeName);
    AttachFlatCombos(form);
    FlattenButtonsAndTextBoxes(form);
    OutlineIndicators(form);
}

const FlatCombos& flatCombos() {
    return combos();
}

} // namespace ovrano
