#include "design/DesignModel.h"

#include "support/MarkingTranslator.h"

#include <QFileInfo>

DesignValues::DesignValues()
    : exists(true), open(false), major(0), minor(0), hasStructure(false), changesAreShared(true),
      cycles(0)
{
}

int DesignValues::indexOf(const QString& path) const
{
    for (int index = 0; index < files.count(); ++index) {
        if (files.at(index).first == path)
            return index;
    }
    return -1;
}

DesignModel::DesignModel()
    : hasItem(false), itemDesign(-1), hasCreate(false), hasOpen(false), createEnabled(true),
      openEnabled(true), marks(false), hasWindow(false), opened(false)
{
}

QString DesignModel::shown(const char* text) const
{
    return marks ? MarkingTranslator::marked(QLatin1String("ZORV_Plugin::ZORV_FileTypeExtensions"),
                                             QLatin1String(text))
                 : QString::fromLatin1(text);
}

void DesignModel::contextMenu(const QString& context, bool isDesignFile, int design,
                              const ModelFile& file)
{
    const QString suffix = QFileInfo(file.path).fileName().section(QLatin1Char('.'), 1);
    if (context == QLatin1String("MainDesignWidget") && isDesignFile && design >= 0 &&
        designs.at(design).type == QLatin1String("Firmware Design")) {
        if (suffix == QLatin1String("bin")) {
            if (!hasCreate)
                createText = shown("Create FCF");
            hasCreate = true;
            trace << QLatin1String("menu: create");
        } else if (suffix == QLatin1String("txt")) {
            if (!hasOpen)
                openText = shown("Open FCF");
            hasOpen = true;
            trace << QLatin1String("menu: open");
        }
    }
    hasItem = true;
    itemDesign = design;
    item = file;
}

void DesignModel::refreshForDesignState(bool locked, bool read_only)
{
    if (hasCreate)
        createEnabled = !locked && !read_only;
    if (hasOpen)
        openEnabled = !locked && !read_only;
}

int DesignModel::onlyDesign() const
{
    int only = -1;
    for (int index = 0; index < designs.count(); ++index) {
        if (!designs.at(index).open)
            continue;
        if (only >= 0)
            return -1;
        only = index;
    }
    return only;
}

void DesignModel::note(int design, const QString& line)
{
    trace << QLatin1String(designs.at(design).cycles > 0 ? "cycle: " : "") + line;
}

QVariant DesignModel::readProperty(int design, const char* name)
{
    note(design, QLatin1String("read ") + QLatin1String(name));
    return designs.at(design).properties.value(QLatin1String(name));
}

void DesignModel::needWindow()
{
    if (hasWindow)
        return;
    hasWindow = opened = true;
    window = WindowModel();
}

void DesignModel::noteBox(const QString& text)
{
    if (!text.isEmpty())
        trace << QLatin1String("box ") + text << window.state();
}

void DesignModel::showWindow() { window.minimized = false; }

void DesignModel::create()
{
    if (!hasItem)
        return;
    needWindow();
    const int design = onlyDesign();
    if (design >= 0) {
        const DesignValues& values = designs.at(design);
        window.setVersion(values.major, values.minor);
        window.setAuthor(user);
        window.setBinFile(item);
        window.ciNumber = QLatin1String("0");
        fillTarget(design);
        if (values.changes.isValid() && values.changesAreShared) {
            noteBox(window.setDescription(values.changes.toString()));
        }
    }
    showWindow();
}

void DesignModel::fillTarget(int design)
{
    const QVariant module = readProperty(design, "ZORV Pelk Module");
    if (module.toString().isEmpty())
        return;
    window.setModule(module.toString());
    const QVariant device = readProperty(design, "ZORV Pelk Device");
    if (device.toString().isEmpty())
        return;
    window.setDevice(device.toString());
    window.setConfigNum(readProperty(design, "ZORV Pelk Config Number").toInt());
}

void DesignModel::open()
{
    if (!hasItem)
        return;
    needWindow();
    if (onlyDesign() >= 0) {
        noteBox(window.setTxtFile(item));
        window.finishTxtFile();
    }
    showWindow();
}

void DesignModel::newFiles(const QStringList& paths, const HostActs& acts)
{
    const int design = onlyDesign();
    if (paths.isEmpty() || design < 0)
        return;
    QStringList handled;
    note(design, QLatin1String("structure"));
    const bool begun = designs.at(design).hasStructure && !designs.at(design).node.isNull();
    if (begun) {
        ++designs[design].cycles;
        foreach (const QString& path, paths) {
            const QString file = takeFile(design, path, acts);
            if (!file.isNull())
                handled << file;
        }
        if (hasWindow)
            writeTarget(design);
    }
    note(design, QLatin1String("events"));
    actInEvents(design, acts, &handled);
    if (!designs.at(design).exists)
        return;
    if (begun && --designs[design].cycles == 0)
        note(design, QLatin1String("end of the cycle 1"));
    QStringList names;
    foreach (const QString& path, handled)
        names << QFileInfo(path).fileName();
    note(design, QLatin1String("refresh ") + names.join(QLatin1String(", ")));
}

void DesignModel::logGenerated()
{
    const QString line =
        QLatin1String("2 Pelk FCF Generator: Successfully generated output files.");
    if (onlyDesign() >= 0)
        note(onlyDesign(), line);
    else
        trace << line;
}

QString DesignModel::takeFile(int design, const QString& path, const HostActs& acts)
{
    DesignValues& values = designs[design];
    const QString node = values.node;
    const QString name = QFileInfo(path).fileName();
    note(design, QLatin1String("find ") + path);
    int index = values.indexOf(path);
    const bool isNew = index < 0;
    if (isNew) {
        note(design, QString::fromLatin1("add %1 with error \"\"").arg(path));
        if (!values.refusal.isNull()) {
            note(design, QString::fromLatin1("8 ") +
                             shown("Failed to add generated file \"%1\" to design. Error: %2")
                                 .arg(path, values.refusal));
            return QString();
        }
        index = values.files.count();
        values.files << qMakePair(path, QString::fromLatin1("/-/"));
        if (acts.whenAdded == HostActs::ChangesVersion)
            ++values.minor;
        else if (acts.whenAdded == HostActs::DropsStructure)
            values.hasStructure = false;
        else if (acts.whenAdded == HostActs::DropsWindow)
            hasWindow = false;
    }
    QString& noted = values.files[index].second;
    QStringList parts = noted.split(QLatin1Char('/'));
    const QStringList wanted = QStringList()
                               << QString::fromLatin1("%1.%2").arg(values.major).arg(values.minor)
                               << QLatin1String("generated") << node;
    for (int part = 0; part < 3; ++part) {
        if (parts.at(part) == wanted.at(part))
            continue;
        parts[part] = wanted.at(part);
        noted = parts.join(QLatin1String("/"));
        note(design, QString::fromLatin1("mark %1: %2").arg(name, noted));
    }
    note(design, QString::fromLatin1("2 ") +
                     shown(isNew ? "Successfully added generated file \"%1\" to design."
                                 : "Successfully updated generated file \"%1\" in design.")
                         .arg(path));
    return path;
}

void DesignModel::writeTarget(int design)
{
    const QString place = QLatin1String(" in Pelk Radar Signal Processor");
    QMap<QString, QVariant>& properties = designs[design].properties;
    properties[QLatin1String("ZORV Pelk Module")] = window.module;
    note(design,
         QString::fromLatin1("set ZORV Pelk Module = QString \"%1\"").arg(window.module) + place);
    properties[QLatin1String("ZORV Pelk Device")] = window.device;
    note(design,
         QString::fromLatin1("set ZORV Pelk Device = QString \"%1\"").arg(window.device) + place);
    const int config = window.configIndex + 1;
    properties[QLatin1String("ZORV Pelk Config Number")] = config;
    note(design,
         QString::fromLatin1("set ZORV Pelk Config Number = int \"%1\"").arg(config) + place);
}

void DesignModel::actInEvents(int design, const HostActs& acts, QStringList* handled)
{
    DesignValues& values = designs[design];
    switch (acts.inEvents) {
    case HostActs::DeletesDesign:
        closeDesign(design);
        return;
    case HostActs::RemovesFile:
        removeFile(design, acts.path);
        handled->removeAll(acts.path);
        return;
    case HostActs::ClosesWindow:
        hasWindow = false;
        return;
    case HostActs::BeginsCycle:
        ++values.cycles;
        return;
    case HostActs::TakesDesignFromList:
        values.open = false;
        return;
    case HostActs::OpensAnother:
        designs[1 - design].open = designs.at(1 - design).exists;
        return;
    case HostActs::DropsItsStructure:
        values.hasStructure = false;
        return;
    case HostActs::Nothing:
        return;
    }
}

void DesignModel::closeDesign(int design)
{
    designs[design] = DesignValues();
    designs[design].exists = false;
    if (itemDesign == design)
        hasItem = false;
}

void DesignModel::removeFile(int design, const QString& path)
{
    const int file = designs.at(design).indexOf(path);
    if (file < 0)
        return;
    designs[design].files.removeAt(file);
    if (itemDesign == design && item.path == path)
        hasItem = false;
}

QStringList DesignModel::state() const
{
    QStringList lines;
    if (hasCreate)
        lines << QString::fromLatin1("create \"%1\" enabled %2").arg(createText).arg(createEnabled);
    if (hasOpen)
        lines << QString::fromLatin1("open \"%1\" enabled %2").arg(openText).arg(openEnabled);
    for (int index = 0; index < designs.count(); ++index) {
        const DesignValues& design = designs.at(index);
        if (!design.exists)
            continue;
        lines << QString::fromLatin1("design %1 open %2 cycle %3")
                     .arg(index)
                     .arg(design.open)
                     .arg(design.cycles > 0);
        foreach (const QString& name, design.properties.keys())
            lines << QString::fromLatin1("%1 = %2").arg(name,
                                                        design.properties.value(name).toString());
        for (int file = 0; file < design.files.count(); ++file)
            lines << design.files.at(file).first + QLatin1String(": ") +
                         design.files.at(file).second;
    }
    lines << QString::fromLatin1("window %1 opened %2").arg(hasWindow).arg(opened);
    if (hasWindow)
        lines << window.state();
    return lines;
}
