#include <txpluginqt/support/QtFonts.h>

#include <QGuiApplication>

bool QtTextIsAvailable() { return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr; }
