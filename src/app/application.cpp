#include "app/application.h"

#include <QLibraryInfo>
#include <QLocale>

namespace ovrano {

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Ovrano"));
    setDesktopFileName(QStringLiteral("org.ovrano.Ovrano"));
    setApplicationVersion(QStringLiteral(OVRANO_VERSION));
    // The program speaks French, and so must the toolkit's own dialogs, whatever the desktop's language.
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    if (m_toolkitInFrench.load(QStringLiteral("qtbase_fr"),
                               QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&m_toolkitInFrench);
}

} // namespace ovrano
