#include "app/programwindow.h"
#include "app/topics.h"
#include "support/comparison.h"
#include "support/pictures.h"

#include <memory>

namespace ovrano::bench {

namespace {

/// A program with a block in hand.
struct Hand {
    explicit Hand(int megapixels) {
        program.setPicture(photo(squareOf(megapixels)));
        program.chooseText();
        program.setText(QStringLiteral("Votre texte"));
        program.stamp();
        program.grab();
    }

    void move() {
        ++step;
        program.dragTo(QPoint(300 + step * 7 % 300, 300 + step * 5 % 200));
    }

    ProgramWindow program;
    int step = 0;
};

} // namespace

void dragging() {
    compare("a drag step with repaint, 64 MP", [](Comparison& ways) {
        const auto large = std::make_shared<Hand>(64);
        const auto small = std::make_shared<Hand>(1);
        ways.ours(timed([=] { large->move(); })).within(16);
        ways.against("the same on 1 MP", timed([=] { small->move(); }), 1.15);
    });
}

} // namespace ovrano::bench
