#include <QtCore/qglobal.h>

/// The text by which a host built on Qt 4.5 decides whether to load the plug-in; it must match the
/// host's own Qt. Later versions of Qt read the plug-in's metadata instead.
extern "C" Q_DECL_EXPORT const char *qt_plugin_query_verification_data()
{
    return "pattern=QT_PLUGIN_VERIFICATION_DATA\n"
           "version=4.5.2\n"
           "debug=false\n"
           "buildkey=Windows msvc release orvane-config no-stl";
}
