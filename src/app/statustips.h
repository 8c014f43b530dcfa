#pragma once

class QMainWindow;

namespace ovrano {

/// Gives the controls and menu entries of the main window the sentences that tell what to do with them, and
/// tooltips to the controls that have none of their own.
void addStatusTips(QMainWindow& window);

} // namespace ovrano
