#include "generator/FormModel.h"

namespace {

QString secondPiece(const QString& line, const QString& separator)
{
    return line.split(separator).value(1);
}

/// Lines of the text, the one after "Filename: " first.
class Lines {
public:
    explicit Lines(const PlainFcf& fcf)
    {
        for (const std::string& line : fcf.lines)
            m_lines << QString::fromStdString(line);
        m_lines = m_lines.mid(2);
    }
    /// Behind the last line comes the end mark, so that a reading ends; see ended().
    QString next()
    {
        m_ended = m_lines.isEmpty();
        return m_ended ? QString("----") : m_lines.takeFirst();
    }
    bool ended() const { return m_ended; }

private:
    bool m_ended = false;
    QStringList m_lines;
};

void readTarget(const PlainFcf& fcf, FormModel* form)
{
    const QStringList devices =
        fcf.numbers[6] == 1
            ? QStringList{"Processing_FPGA"}
            : QStringList{"Interface_FPGA", "Processing_FPGA_1", "Clock_Master_Device"};
    form->module = fcf.numbers[6] == 1 ? "DFE2" : "DFE";
    form->device = devices.first();
    switch (fcf.numbers[7]) {
    case 1:
        form->device = devices.value(0);
        break;
    case 2:
        form->device = devices.value(1);
        break;
    case 4:
        form->device = devices.value(2);
        break;
    case 8:
        if (fcf.numbers[6] == 2)
            form->device.clear();
        break;
    default:
        break;
    }
    form->slot = fcf.numbers[8];
    form->versionMajor = QString::number(fcf.numbers[9]);
    form->versionMinor = QString::number(fcf.numbers[10]);
}

} // namespace

FormModel FormModel::afterLoading(const PlainFcf& fcf)
{
    FormModel form;
    readTarget(fcf, &form);

    Lines lines(fcf);
    form.ciNumber = secondPiece(lines.next(), ": ").trimmed();
    form.author = secondPiece(lines.next(), ": ").trimmed();
    lines.next();
    lines.next();
    QStringList paragraphs;
    for (QString text = secondPiece(lines.next(), ":").trimmed(); !text.contains("---");
         text = lines.next())
        paragraphs << text;
    // An empty first paragraph leaves the description empty, and the next one begins it.
    while (!paragraphs.isEmpty() && paragraphs.first().isEmpty())
        paragraphs.removeFirst();
    form.description = paragraphs.join('\n');

    for (QString line = lines.next(); !line.contains("----"); line = lines.next()) {
        const QString name = secondPiece(line, ": ");
        const QString author = secondPiece(lines.next(), ": ").trimmed();
        const QString number = secondPiece(lines.next(), ":");
        QString description;
        for (QString text = secondPiece(lines.next(), ": "); !text.contains("---");
             text = lines.next())
            description += text;
        form.names << name;
        form.functions << QStringList{name.trimmed(), author, description, number};
    }
    form.complete = !lines.ended();
    return form;
}

QStringList FormModel::generatedLines() const
{
    QStringList lines = {"CI No: " + ciNumber, "Author: " + author};
    lines << ("Description: " + description.trimmed()).split('\n') << "---";
    for (const QStringList& function : functions) {
        lines << "Function name: " + function[0] << "Function author: " + function[1]
              << "Function CI No: " + function[3]
              << ("Function description: " + function[2].trimmed()).split('\n') << "---";
    }
    return lines << "----";
}
