// What the fuzzer calls; which of the bodies it is comes from the build.

#include "bodies.h"

#include <QGuiApplication>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*count, *arguments);
    ovrano::fuzz::prepareBodies();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    ovrano::fuzz::OVRANO_FUZZ_BODY(
        QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count)));
    return 0;
}
