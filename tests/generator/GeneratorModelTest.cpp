// Long random sequences through the real generator window, compared with the model of its rules.

#include "generator/model/GeneratorRun.h"

#include <QApplication>
#include <QTextCodec>

namespace {

/// Another locale, time zone and codec of texts for each seed.
int seed() { return qgetenv("PELK_MODEL_SEED").toInt(); }

void changeSurroundings()
{
    static const char* const Locales[] = {"C", "de_DE.UTF-8", "en_US.UTF-8", "ja_JP.UTF-8",
                                          "ar_EG.UTF-8"};
    static const char* const Zones[] = {"Asia/Kathmandu", "America/St_Johns", "Pacific/Auckland"};
    if (qgetenv("PELK_MODEL_SEED").isEmpty())
        qputenv("PELK_MODEL_SEED", "1");
    if (qgetenv("QT_QPA_PLATFORM").isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const int number = qAbs(seed());
    qputenv("LC_ALL", "");
    qputenv("LANG", "C.UTF-8");
    qputenv("LC_TIME", Locales[number % 5]);
    qputenv("TZ", Zones[number % 3]);
}

Model* makeModel(const QString& folder)
{
    qApp->setQuitOnLastWindowClosed(false);
    QTextCodec::setCodecForLocale(
        QTextCodec::codecForName(seed() % 4 == 3 ? "ISO-8859-1" : "UTF-8"));
    return new GeneratorRun(folder);
}

} // namespace

int main(int argc, char** argv)
{
    changeSurroundings();
    return runModel(argc, argv, QString::fromUtf8(ZORV_SEQUENCES), &makeModel);
}
