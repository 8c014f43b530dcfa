#pragma once

#include <QObject>
#include <QWidget>

#include <functional>

namespace ovrano {

/// Takes a picture file that is dropped on a window or on anything in it. What is dropped on a text field and
/// is no file stays the field's.
class FileDrop : public QObject {
    Q_OBJECT

public:
    using Open = std::function<void(const QString& path)>;

    /// `open` is called when the drop is over, so that the program it came from does not have to wait.
    FileDrop(QWidget& window, Open open);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Open m_open;
};

} // namespace ovrano
