#ifndef TESTS_SUPPORT_MARKINGTRANSLATOR_H
#define TESTS_SUPPORT_MARKINGTRANSLATOR_H

#include <QTranslator>

/// Shows each text that passes through tr() as "[CONTEXT|TEXT]", and so its context too.
class MarkingTranslator : public QTranslator {
public:
    /// Leaves those of other contexts alone, unless \p context is empty.
    explicit MarkingTranslator(const QByteArray& context = QByteArray()) : m_context(context) {}

    // Qt 5 asks by the first of these, Qt 4 by the second.
    QString translate(const char* context, const char* text, const char*, int) const
    {
        return m_context.isEmpty() || m_context == context
                   ? marked(QString::fromLatin1(context), QString::fromUtf8(text))
                   : QString();
    }
    QString translate(const char* context, const char* text, const char* comment = nullptr) const
    {
        return translate(context, text, comment, -1);
    }
    bool isEmpty() const { return false; }

    static QString marked(const QString& context, const QString& text)
    {
        return QLatin1Char('[') + context + QLatin1Char('|') + text + QLatin1Char(']');
    }

private:
    QByteArray m_context;
};

#endif
