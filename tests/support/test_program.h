#pragma once

#include <QTest>

// A room's tests are one program: CTest calls it with the name of a test class's file, and it runs that class
// in a process of its own. Each file defines one function of its own name, which calls one of these.
namespace fennick::test {

template <typename Application, typename TestClass>
int runTest(int argc, char **argv) {
    const Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi); // the same sizes on every machine
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

template <typename TestClass>
int runTestWithoutApplication(int argc, char **argv) {
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace fennick::test
