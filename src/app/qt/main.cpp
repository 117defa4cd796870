// SPDX-License-Identifier: MIT
#include "app/qt/start_up.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tarvelint"));
    tarvelint::StartUp startUp;
    QObject::connect(&startUp.windows(), &tarvelint::WindowList::lastClosed, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    startUp.Main();
    return QApplication::exec();
}
