#include "reference/Passage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

using namespace FcfLayout;

namespace {

// The document for people.

QString numberRows()
{
    const QString row = "| %1 | %2 | `%3` | %4 | %5 |\n";
    const QString rows = each(Numbers, [&](const NumberField& field) {
        return row.arg(field.offset).arg(WordBytes).arg(field.name, field.unit, field.meaning);
    });
    const QString reserved = QStringLiteral("| %1 | %2 | `reserved` | | words of 0x%3 |\n")
                                 .arg(NumberCount * WordBytes)
                                 .arg(ReservedWordCount * WordBytes)
                                 .arg(QString::number(ReservedWord, 16).toUpper());
    return "| Offset | Bytes | Name | Unit | Meaning |\n|---|---|---|---|---|\n" + rows + reserved;
}

/// Sizes at which the pages and blocks change.
QString sizeRows()
{
    const PelkFcfGeneratorFileInfo info;
    const QList<int> sizes{1, 135168, 135169, 268223, 270335, 270336, 270337};
    const QString row = "| %1 | %2 | %3 | %4 |\n";
    return "| Bytes | *p* | Pages | Blocks |\n|---|---|---|---|\n" + each(sizes, [&](int bytes) {
               const int begunPages = (bytes + PageBytes - 1) / PageBytes;
               return row.arg(bytes).arg(begunPages).arg(info.pages(bytes)).arg(info.blocks(bytes));
           });
}

QString codeRows()
{
    const QString row = "| %1 | %2 | %3 | %4 |\n";
    return "| `moduleCode` | `deviceCode` | Module | Device |\n|---|---|---|---|\n" +
           each(FcfTarget::Targets, [&](const FcfTarget::Target& target) {
               return row.arg(target.moduleCode)
                   .arg(target.deviceCode)
                   .arg(target.module, target.device);
           });
}

template <class Fields>
QString textRows(const Fields& fields)
{
    const QString row = "| `%1` | `%2` | %3 | %4 | %5 |\n";
    return "| Line begins with | Name | Written | Lines | Meaning |\n|---|---|---|---|---|\n" +
           each(fields, [&](const auto& field) {
               return row.arg(field.prefix, field.name,
                              field.whenWritten == Trimmed ? "without blanks around it"
                                                           : "as it is",
                              field.hasLines ? "any number" : "one", field.meaning);
           });
}

// The codes.

/// The names of all that has each code: several modules have one code, and so do several devices.
using Codes = QMap<qint32, QStringList>;

Codes moduleCodes()
{
    Codes codes;
    for (const auto& target : FcfTarget::Targets)
        codes[target.moduleCode] << target.module;
    for (QStringList& names : codes)
        names.removeDuplicates();
    return codes;
}

Codes deviceCodes()
{
    Codes codes;
    for (const auto& target : FcfTarget::Targets)
        codes[target.deviceCode] << target.device;
    for (QStringList& names : codes)
        names.removeDuplicates();

    codes[FcfTarget::NoCode] = QStringList("Without_code");
    return codes;
}

// The description for Kaitai Struct.

/// totalPages as total_pages.
QString underscored(QString name)
{
    static const QRegularExpression capital("([A-Z])");
    return name.replace(capital, "_\\1").toLower();
}

QString kaitaiNumbers()
{
    const QString entry = "      - id: %1\n        type: s%2\n%3        doc: \"%4\"\n";
    return each(Numbers, [&](const NumberField& field) {
        const bool isModule = field.value == &FcfHeader::moduleCode;
        return entry.arg(underscored(field.name))
            .arg(WordBytes)
            .arg(isModule ? "        enum: module_code\n" : "", field.meaning);
    });
}

template <class Fields>
QString kaitaiTexts(const Fields& fields)
{
    const QString entry = "      - id: %1\n        type: '%2(\"%3\")'\n";
    return each(fields, [&](const auto& field) {
        return entry.arg(underscored(field.name), field.hasLines ? "lines" : "line", field.prefix);
    });
}

QString kaitaiModules()
{
    const Codes codes = moduleCodes();
    return "  module_code:\n" + each(codes.keys(), [&](qint32 code) {
               return QStringLiteral("    %1: %2\n")
                   .arg(code)
                   .arg(codes[code].join("_or_").toLower());
           });
}

// The pattern for ImHex.

QString hexEnumeration(const QString& name, const Codes& codes)
{
    QStringList values;
    for (const qint32 code : codes.keys())
        values << QStringLiteral("    %1 = %2").arg(codes[code].join("_or_")).arg(code);
    return "enum " + name + " : s32 {\n" + values.join(",\n") + "\n};\n";
}

QString hexNumbers()
{
    return each(Numbers, [](const NumberField& field) {
        const char* type = field.value == &FcfHeader::moduleCode   ? "ModuleCode"
                           : field.value == &FcfHeader::deviceCode ? "DeviceCode"
                                                                   : "s32";
        return QStringLiteral("    %1 %2;\n").arg(type, field.name);
    });
}

template <class Fields>
QString hexTexts(const Fields& fields)
{
    return each(fields, [](const auto& field) {
        return QStringLiteral("    %1 %2; // \"%3\"\n")
            .arg(field.hasLines ? "Lines" : "Line", field.name, field.prefix);
    });
}

// The words that the fuzz targets try.

template <class Fields>
QString dictionaryEntries(const Fields& fields)
{
    return each(fields,
                [](const auto& field) { return QStringLiteral("\"%1\"\n").arg(field.prefix); });
}

} // namespace

QList<Passage> formatPassages()
{
    const QString document = "docs/fcf-format.md";
    const QString kaitai = "docs/fcf.ksy";
    const QString hex = "docs/fcf.hexpat";
    return {
        {document, "numbers", numberRows()},
        {document, "sizes", sizeRows()},
        {document, "codes", codeRows()},
        {document, "header texts", textRows(HeaderTexts)},
        {document, "function texts", textRows(FunctionTexts)},
        {kaitai, "numbers", kaitaiNumbers()},
        {kaitai, "header texts", kaitaiTexts(HeaderTexts)},
        {kaitai, "function texts", kaitaiTexts(FunctionTexts)},
        {kaitai, "codes", kaitaiModules()},
        {hex, "codes",
         hexEnumeration("ModuleCode", moduleCodes()) + '\n' +
             hexEnumeration("DeviceCode", deviceCodes())},
        {hex, "numbers", hexNumbers()},
        {hex, "function texts", hexTexts(FunctionTexts)},
        {hex, "header texts", hexTexts(HeaderTexts)},
        {"tests/fuzz/dictionaries/page.dict", "texts",
         dictionaryEntries(HeaderTexts) + dictionaryEntries(FunctionTexts)},
    };
}
