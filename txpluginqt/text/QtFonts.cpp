#include <txpluginqt/text/QtFonts.h>

#include <QGuiApplication>

namespace txqt
{

bool QtTextIsAvailable() { return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr; }

} // namespace txqt
