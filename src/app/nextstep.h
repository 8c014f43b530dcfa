#pragma once

#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "platform/imagebutton.h"

#include <QLineEdit>
#include <QObject>
#include <QString>
#include <QTimer>

namespace ovrano {

/// What decides what the user can do next.
struct Situation {
    bool pickerOn = false; // the colour picker waits for a click
    bool zoneMode = false; // zones can be framed, and a lifted block dragged
    bool blockLifted = false;
    bool blockFromPaste = false;  // the block is a pasted picture
    bool blockSeeThrough = false; // it has a mask: a text, when it was not pasted
    bool textToolsShown = true;   // the tools of the one-colour text are in the panel
    bool textTyped = true;
};

/// One French sentence that names the next action.
QString nextStep(const Situation& situation);

/// Watches the window's tools and tells, when something has changed, what can be done next.
class NextStep : public QObject {
    Q_OBJECT

public:
    NextStep(const WorkPicture& work, const LiftedBlock& block, const ImageButton& imgRegion,
             const ImageButton& imgColorPicker, const QLineEdit& txbWriteText, QWidget& textTools,
             QObject* parent = nullptr);

Q_SIGNALS:
    void changed(const QString& sentence);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Situation situation() const;
    void tell();

    const LiftedBlock& m_block;
    const ImageButton& m_imgRegion;
    const ImageButton& m_imgColorPicker;
    const QLineEdit& m_txbWriteText;
    const QWidget& m_textTools;
    QTimer m_settled; // a command sets several flags: they are read once, when it is over
    QString m_told;
};

} // namespace ovrano
