#pragma once

#include <QApplication>
#include <QTranslator>

namespace ovrano {

/// The application object: the program's name, and the toolkit's own words in French, which must be there
/// before the first widget is.
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

private:
    QTranslator m_toolkitInFrench;
};

} // namespace ovrano
