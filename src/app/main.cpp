#include "app/application.h"
#include "app/mainwindow.h"
#include "platform/qtdialogs.h"

int main(int argc, char** argv) {
    const ovrano::Application application(argc, argv);
    ovrano::QtDialogs dialogs;
    ovrano::MainWindow window(dialogs);
    window.show();
    return ovrano::Application::exec();
}
