// SPDX-License-Identifier: MIT
// A thread counts and hands the count over in an event. With an argument it goes on counting.
#include <QCoreApplication>
#include <QThread>

int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    QThread thread;
    QObject worker;
    worker.moveToThread(&thread);
    thread.start();
    volatile int counted = 0;
    QMetaObject::invokeMethod(&worker, [&] {
        counted = 1;
        QMetaObject::invokeMethod(&application, [&] {
            counted = counted + 1;
            QCoreApplication::quit();
        });
        if (count > 1)
            counted = counted + 1;
    });
    QCoreApplication::exec();
    thread.quit();
    thread.wait();
    return counted > 1 ? 0 : 1;
}
