// Plays the typical job on the real program and leaves pictures of it: tour FOLDER [WIDTH].
// Ends with 0 when everything went as it should and the files it saved are right.

#include "scenarios/tour.h"

#include "app/application.h"
#include "platform/qtdialogs.h"
#include "scenarios/tourcheck.h"
#include "support/playuser.h"

#include <cstdio>
#include <cstdlib>

namespace {

QStringList playTour(const QDir& folder, int width) {
    ovrano::QtDialogs dialogs;
    ovrano::MainWindow window(dialogs);
    ovrano::testing::Tour tour(window, folder, width);
    window.show();
    ovrano::testing::playUser([&] { tour.play(); });
    return ovrano::testing::complaintsAbout(tour);
}

} // namespace

int main(int argc, char** argv) {
    const ovrano::Application application(argc, argv);
    if (argc < 2 || argc > 3) {
        std::fputs("usage: tour FOLDER [WIDTH]\n", stderr);
        return EXIT_FAILURE;
    }
    const QStringList arguments = ovrano::Application::arguments();
    QStringList complaints;
    try {
        complaints = playTour(QDir(arguments.at(1)), arguments.value(2).toInt());
    } catch (const std::exception& error) {
        complaints.append(QString::fromUtf8(error.what()));
    }
    for (const QString& complaint : complaints)
        std::fprintf(stderr, "tour: %s\n", qUtf8Printable(complaint));
    return complaints.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
