#pragma once

#include <QByteArray>

#include <vector>

namespace ovrano::fuzz {

/// What is tried with any bytes, one function for each way that bytes come into the program. Each returns
/// when all is well, be it that the bytes are refused as the program refuses such; it throws a Finding or
/// something else when they are not, or crashes. The same function runs under the fuzzer and, on the kept
/// files, in the tests.
///
/// They want a QGuiApplication on a platform without a display, and prepareBodies() before.

void openContent(const QByteArray& content);
void openFile(const QByteArray& content);
void pasteClipboard(const QByteArray& offers);
void drawVector(const QByteArray& svg);
void makeSelfContained(const QByteArray& svg);
void readBmpRows(const QByteArray& content);
void writeGifAndRead(const QByteArray& bytes);

struct Body {
    const char* name; // of its corpus, its dictionary and its program
    void (*run)(const QByteArray& bytes);
};

const std::vector<Body>& bodies();

/// Keeps the decoders' warnings quiet and the desktop's own clipboard out of it.
void prepareBodies();

} // namespace ovrano::fuzz
