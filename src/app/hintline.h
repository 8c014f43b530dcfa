#pragma once

#include "app/elidedlabel.h"

namespace ovrano {

/// The line that tells the user how to go on: what the control under the pointer is for, and otherwise the
/// next step; while the program works on something long, that it does.
class HintLine : public ElidedLabel {
    Q_OBJECT

public:
    /// Listens to the status tips of the window's controls and menu entries.
    HintLine(const QString& name, QWidget& window, QWidget* parent);

    void showNextStep(const QString& sentence);
    void showWorking(bool working);

    /// The width in pixels that holds every sentence of the program.
    int wantedWidth() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showMostUrgent();

    QString m_nextStep;
    QString m_statusTip;
    bool m_working = false;
};

} // namespace ovrano
