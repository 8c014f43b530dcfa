#pragma once

#include "ui/ccontrolflater.h"

#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

namespace ovrano {

/// Gives a form its whole flat look; every form calls it when it loads, after its controls are there.
void flattenForm(QWidget& form);

/// Gives a static edge to the form's controls of one type: "CommandButton" (buttons, but not the tool buttons
/// that rise by themselves), "TextBox" (fields of one line), "ListBox" (lists that stand alone). Upper and
/// lower case are the same. Parts of other controls, and windows that belong to the form, are left as they
/// are.
void FlattenControlsOfType(QWidget& form, const QString& typeName);

/// The same for "CommandButton" and "TextBox". Progress bars ("ProgressBar") keep the desktop's look.
void FlattenButtonsAndTextBoxes(QWidget& form);

/// Has what shows a state or can be dragged (tool buttons, check boxes, sliders, scroll bars) seen in every
/// palette.
void OutlineIndicators(QWidget& form);

/// Gives every combo box of the form ("ComboBox", or "ImageCombo" when its items have icons) a flat frame. A
/// box that has one keeps it.
void AttachFlatCombos(QWidget& form);

/// The sunken frame of a control gives way to a thin static edge; its size stays.
void SetStaticEdge(QWidget& control);

/// The flat combo boxes of the whole program. A box that is destroyed leaves the list.
const std::vector<std::unique_ptr<cControlFlater>>& flatCombos();

} // namespace ovrano
