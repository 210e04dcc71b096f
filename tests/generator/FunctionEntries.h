#ifndef TESTS_GENERATOR_FUNCTIONENTRIES_H
#define TESTS_GENERATOR_FUNCTIONENTRIES_H

#include "generator/PelkFcfGenerator.h"

#include <QComboBox>
#include <QString>

/// The function list of a window, as it is in memory. It is the window's own, but no action of its
/// user shows when it does not fit what the form lists.
namespace FunctionEntries {

/// An explicit instantiation may name a private member, which this one gives away.
template <class Tag, typename Tag::Member member>
struct Access {
    friend typename Tag::Member memberOf(Tag) { return member; }
};
struct Functions {
    using Member = QVector<QString> PelkFcfGenerator::*;
    friend Member memberOf(Functions);
};
template struct Access<Functions, &PelkFcfGenerator::functions>;

inline QVector<QString> of(const PelkFcfGenerator* window)
{
    return window->*memberOf(Functions());
}

/// Where the entries are not four for each item of the form, the first of them the item's name
/// without the blanks around it; empty when all is well.
inline QString fault(const PelkFcfGenerator* window)
{
    const QVector<QString> entries = of(window);
    const auto* const list = window->findChild<QComboBox*>("FunctionComboBox");
    if (entries.size() != 4 * list->count())
        return QString("%1 entries for %2 items").arg(entries.size()).arg(list->count());
    for (int i = 0; i < list->count(); ++i) {
        if (entries.at(4 * i).trimmed() != list->itemText(i).trimmed())
            return QString("\"%1\" for item \"%2\"").arg(entries.at(4 * i), list->itemText(i));
    }
    return QString();
}

} // namespace FunctionEntries

#endif
