#include "host/app/Catalogues.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QLocale>
#include <QTranslator>

#include <memory>

void Catalogues::install(const QString& name, const QString& folder)
{
    // There is no catalogue of English texts, so that a user who prefers English to German would
    // get German if the further languages were tried.
    const QString language = QLocale::system().uiLanguages().value(0).replace('-', '_');
    auto catalogue = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (catalogue->load(name + '_' + language, folder))
        QCoreApplication::installTranslator(catalogue.release());
}

void Catalogues::installForPlugins(const QStringList& folders)
{
    for (const QString& folder : folders) {
        const QStringList files = QDir(folder).entryList(QDir::Files, QDir::Name);
        for (const QString& file : files) {
            if (!QLibrary::isLibrary(file))
                continue;

            QString name = QFileInfo(file).baseName();
            if (name.startsWith("lib"))
                name.remove(0, 3);
            install(name, folder);
        }
    }
}
