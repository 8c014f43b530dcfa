#pragma once

#include <QKeyEvent>
#include <QLineEdit>
#include <QObject>

namespace ovrano {

/// Leaves a text field's editing keys to the window's menus where the field has no use for them: pasting when
/// the clipboard holds no text, copying and cutting when nothing is selected, undoing when nothing was typed.
class TextFieldKeys : public QObject {
    Q_OBJECT

public:
    explicit TextFieldKeys(QLineEdit& field);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOfNoUse(const QKeyEvent& press) const;

    QLineEdit& m_field;
};

} // namespace ovrano
