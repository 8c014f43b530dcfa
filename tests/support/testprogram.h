#pragma once

#include <QApplication>
#include <QTest>

namespace ovrano::testing {

/// What a test program can do, by name: the tests of a room are one program, so that it is linked once.
///
///     tests_document                             lists the names
///     tests_document tst_bmpfile                 runs one test class, in a process of its own
///     tests_document tst_bmpfile readsRows:8bit  runs one case of it; all options of Qt Test are taken
class Entry {
public:
    using Run = int (*)(int argc, char** argv);

    /// `source` is the path of a source file, whose name without ending is the entry's.
    Entry(const char* source, Run run);
};

/// Runs a test class within an application of a kind: QCoreApplication where nothing is drawn.
template<typename Application, typename Test>
int runTest(int argc, char** argv) {
    const Application application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace ovrano::testing

// One of these ends each tst_*.cpp, before its .moc file is included.
#define OVRANO_TEST(Class) OVRANO_TEST_RUN((ovrano::testing::runTest<QApplication, Class>))
#define OVRANO_TEST_WITHOUT_WINDOWS(Class)                                                                   \
    OVRANO_TEST_RUN((ovrano::testing::runTest<QCoreApplication, Class>))
#define OVRANO_TEST_RUN(run) static const ovrano::testing::Entry testEntry{__FILE__, run};
