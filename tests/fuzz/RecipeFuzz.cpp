// A recipe that is read gives a build, and the build the same recipe again.

#include "fuzz/FuzzTarget.h"

#include "tool/build/BuildJson.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const auto build = BuildJson::readRecipe(json, QStringLiteral("recipe.json"));
    if (!build) {
        require(!build.error().isEmpty(), "refused without a reason");
        return 0;
    }
    const QByteArray written = BuildJson::recipe(*build);
    const auto again = BuildJson::readRecipe(written, QStringLiteral("recipe.json"));
    require(again.has_value(), "own recipe is refused");
    require(BuildJson::recipe(*again) == written, "another recipe");
    return 0;
}
