#include "tool/commands/ImagePaths.h"

#include "tool/base/Text.h"
#include "tool/files/Digest.h"
#include "tool/files/InputFile.h"

#include <QFileInfo>

namespace {

const QString BinaryEnding = ".bin";
const QString ContainerEnding = ".bit";
const QString ImageEnding = ".fcf";
const QString CompanionEnding = ".txt";
const QString OutputOption = "--output";

QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }

/// \p path with every ".bin" of its last name replaced, as the generator window does it; those of
/// folders stay.
QString withEnding(const QString& path, const QString& ending)
{
    const QString name = nameOf(path);
    return path.left(path.size() - name.size()) + QString(name).replace(BinaryEnding, ending);
}

/// The paths for an image at \p output.
Result<ImagePaths> pathsOfOutput(const QString& output)
{
    const std::optional<QString> companion = ImagePaths::companionOf(output);
    if (!companion)
        return failure(ExitCode::Refused, output, OutputOption,
                       "the name of an image ends with .fcf, in lower case");

    ImagePaths paths;
    paths.image = output;
    paths.companion = *companion;
    return paths;
}

/// The paths that the name of \p binary gives. An image for standard output needs them for its
/// header.
Result<ImagePaths> pathsOfBinary(const InputFile& binary, bool toStandardOutput)
{
    const bool isContainer = binary.path().endsWith(ContainerEnding);
    const bool hasEnding = binary.path().endsWith(BinaryEnding) || isContainer;
    if (binary.isStandardInput() || !hasEnding)
        return failure(ExitCode::Refused, binary.label(), OutputOption,
                       toStandardOutput ? "gives no name for the header: only a BIN whose "
                                          "name ends with .bin or .bit, in lower case, does"
                                        : "is missing: only a name that ends with .bin or .bit, "
                                          "in lower case, gives the image's name");

    const QString path =
        isContainer ? binary.path().chopped(ContainerEnding.size()) + BinaryEnding : binary.path();
    ImagePaths paths;
    paths.image = withEnding(path, ImageEnding);
    paths.companion = withEnding(path, CompanionEnding);
    return paths;
}

} // namespace

Result<ImagePaths> ImagePaths::of(const InputFile& binary, const std::optional<QString>& output)
{
    const bool toStandardOutput = output == StandardStream;
    auto paths = output && !toStandardOutput ? pathsOfOutput(*output)
                                             : pathsOfBinary(binary, toStandardOutput);
    if (!paths)
        return paths;

    paths->digest = Digest::pathFor(paths->image);
    paths->imageName = nameOf(paths->image);
    if (toStandardOutput)
        paths->image = StandardStream;
    return paths;
}

std::optional<QString> ImagePaths::companionOf(const QString& image)
{
    if (!image.endsWith(ImageEnding))
        return std::nullopt;
    return image.chopped(ImageEnding.size()) + CompanionEnding;
}

bool ImagePaths::toStandardOutput() const { return image == StandardStream; }
