// Linked into every test program: however it is started, it runs without a screen, in a locale that
// does not depend on the machine, with settings of its own, which go when it ends, and with time
// enough.

#include <QTemporaryDir>
#include <QtGlobal>

namespace {

class OwnEnvironment {
public:
    OwnEnvironment()
    {
        qputenv("XDG_CONFIG_HOME", m_settings.path().toLocal8Bit());
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        if (!qEnvironmentVariableIsSet("LC_ALL"))
            qputenv("LC_ALL", "C.UTF-8");
        qunsetenv("LANGUAGE");
        // A day: with sanitizers or many rounds one function can take an hour. Ctest ends what
        // hangs.
        if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
            qputenv("QTEST_FUNCTION_TIMEOUT", "86400000");
    }

private:
    QTemporaryDir m_settings;
};

// Before main(), and so before anything asks for these.
const OwnEnvironment ownEnvironment;

} // namespace
