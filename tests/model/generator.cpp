#include "model/generator.h"

#include "model/testpictures.h"

#include <algorithm>
#include <array>

namespace ovrano::model {

namespace {

constexpr int LargestSide = 130; // pixels; larger pictures only make the steps slow

bool isLarge(const State& state) {
    return state.disp.shown.width > LargestSide || state.disp.shown.height > LargestSide;
}

} // namespace

int Generator::upTo(int limit) {
    return limit < 1 ? 0 : static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

int Generator::between(int from, int to) {
    return from + upTo(to - from + 1);
}

Answer Generator::reply() {
    static constexpr std::array<Answer, 4> replies{Answer::No, Answer::Yes, Answer::Cancel, Answer::No};
    return replies.at(static_cast<std::size_t>(upTo(4)));
}

int Generator::file() {
    if (chance(8))
        return NoFile;
    return chance(50) ? upTo(SmallPictures) : upTo(FilesInAll);
}

int Generator::typedFile() {
    return chance(20) ? NoFile : upTo(TypedNames);
}

Step Generator::open() {
    return {Kind::Open, {file(), typedFile()}, reply()};
}

Step Generator::newPicture() {
    if (chance(15))
        return {Kind::NewCancelled, {typedFile()}, reply()};
    if (chance(10))
        return {Kind::NewClosed, {typedFile()}, reply()};
    const int colour = chance(40) ? -1 : upTo(Colours);
    return {Kind::New, {side(), side(), colour, typedFile()}, reply()};
}

int Generator::side() {
    return chance(3) ? upTo(2) : between(20, 120);
}

Step Generator::start() {
    if (chance(50))
        return {Kind::Open, {upTo(SmallPictures), NoFile}};
    return {Kind::New, {between(20, 120), between(20, 120), upTo(Colours), NoFile}};
}

Step Generator::next(const State& state) {
    if (isLarge(state) && chance(10))
        return start();
    if (state.zoneMode && state.hasSelection && chance(12))
        return chance(25) ? Step{Kind::Enter} : arrow();
    if (chance(state.keyPressed ? 75 : 8))
        return chance(25) ? Step{Kind::Space} : arrow();
    return chance(45) ? gesture(state) : command(state);
}

Step Generator::arrow() {
    const int by = chance(50) ? 1 : 10;
    const int towards = chance(50) ? by : -by;
    return {Kind::Arrow, chance(50) ? std::vector<int>{towards, 0} : std::vector<int>{0, towards}};
}

Step Generator::command(const State& state) {
    const int dice = upTo(30);
    if (dice < 8)
        return documentCommand(dice);
    if (dice < 14)
        return modeCommand(dice - 8);
    return dice < 26 ? clipboardCommand(dice - 14) : otherCommand(state);
}

Step Generator::documentCommand(int dice) {
    switch (dice) {
    case 0:
        return open();
    case 1:
        return newPicture();
    case 2:
        return {Kind::Save, {typedFile(), chance(60) ? 1 : chance(50) ? 6 : 2}};
    case 3:
        return rareCommand();
    case 4:
        return {Kind::Background, {between(-1, Colours - 1)}};
    default:
        return {Kind::Undo, {upTo(3)}};
    }
}

Step Generator::modeCommand(int dice) {
    static constexpr std::array<Kind, 6> kinds{Kind::ZoneButton, Kind::ZoneButton,   Kind::ZoneEntry,
                                               Kind::ZoneEntry,  Kind::PickerButton, Kind::PickerEntry};
    return {kinds.at(static_cast<std::size_t>(dice))};
}

Step Generator::clipboardCommand(int dice) {
    if (dice < 2)
        return {Kind::Copy, {upTo(2)}};
    if (dice < 4)
        return {Kind::Cut, {upTo(2)}};
    if (dice < 7)
        return {Kind::Paste, {upTo(3)}, reply()};
    if (dice < 9)
        return {Kind::PasteFile, {file(), upTo(2)}, reply()};
    if (dice == 9)
        return {Kind::PasteNew};
    if (dice == 10)
        return {chance(50) ? Kind::ClearClipboard : Kind::ForeignText};
    return {Kind::ForeignPicture, {upTo(chance(10) ? Pictures : SmallPictures)}};
}

Step Generator::otherCommand(const State& state) {
    switch (upTo(4)) {
    case 0:
        return {Kind::Stamp, {upTo(3)}};
    case 1:
        return {Kind::OpenMenu, {upTo(4)}};
    case 2:
        return chance(20) ? Step{Kind::OneColourText} : Step{Kind::OpenMenu, {1}};
    default:
        return chance(50) ? Step{Kind::Scroll, {0, upTo(state.horizontal.max + 1)}}
                          : Step{Kind::Scroll, {1, upTo(state.vertical.max + 1)}};
    }
}

Step Generator::rareCommand() {
    switch (upTo(5)) {
    case 0:
        return {Kind::Close};
    case 1:
        return {Kind::Drop, {upTo(FilesInAll), typedFile()}, reply()};
    case 2:
        return {Kind::TextDialog, chance(50) ? std::vector<int>{1, 1} : std::vector<int>{1 + upTo(2), 0}};
    case 3:
        return {Kind::Push, {between(-40, 40), between(-40, 40)}};
    default:
        return {Kind::TextColour, {between(-1, Colours - 1)}};
    }
}

Step Generator::gesture(const State& state) {
    std::vector<int> numbers{chance(92) ? 1 : 0, chance(14) ? between(LostRelease, SecondButton) : NoFlaw};
    const std::vector<int> points = path(state);
    numbers.insert(numbers.end(), points.begin(), points.end());
    return {Kind::Gesture, numbers};
}

std::vector<int> Generator::path(const State& state) {
    const int width = state.disp.shown.width;
    const int height = state.disp.shown.height;
    if (state.zoneMode && state.hasSelection && chance(60))
        return blockDrag(state);
    if (state.zoneMode && chance(60))
        return band(state);
    if (chance(30))
        return edgeDrag(state);
    return {upTo(width), upTo(height), between(-20, width + 20), between(-20, height + 20)};
}

std::vector<int> Generator::blockDrag(const State& state) {
    const int left = std::max(0, static_cast<int>(state.x1));
    const int top = std::max(0, static_cast<int>(state.y1));
    const int x =
        between(left, std::max(left, std::min(state.disp.shown.width - 1, static_cast<int>(state.x2))));
    const int y =
        between(top, std::max(top, std::min(state.disp.shown.height - 1, static_cast<int>(state.y2))));
    std::vector<int> points{x, y};
    for (int i = upTo(3); i >= 0; --i) {
        points.push_back(x + between(-40, 40));
        points.push_back(y + between(-40, 40));
    }
    return points;
}

std::vector<int> Generator::band(const State& state) {
    const int x = upTo(std::max(1, state.disp.shown.width - 3));
    const int y = upTo(std::max(1, state.disp.shown.height - 3));
    std::vector<int> points{x, y};
    if (chance(40)) {
        points.push_back(x + between(-30, 60));
        points.push_back(y + between(-30, 60));
    }
    const int reach = chance(15) ? state.disp.shown.width : 45;
    points.push_back(x + (chance(15) ? between(-20, 2) : between(1, reach)));
    points.push_back(y + (chance(15) ? between(-20, 2) : between(1, reach)));
    return points;
}

std::vector<int> Generator::edgeDrag(const State& state) {
    const bool right = chance(50);
    const int width = state.disp.shown.width;
    const int height = state.disp.shown.height;
    const int side = right ? width : height;
    const int along = upTo(right ? height : width);
    std::vector<int> points;
    const auto add = [&](int across) {
        points.push_back(right ? across : along);
        points.push_back(right ? along : across);
    };
    add(side - between(1, 2));
    if (chance(40)) // in, and perhaps out again
        add(chance(25) ? -1000 : side - between(1, 30));
    if (points.size() < 4 || chance(60))
        add(side + between(-35, std::max(0, LargestSide - side) / 3 + 5));
    return points;
}

} // namespace ovrano::model
