// A recipe that is read gives the same recipe again when it is written.

#include "fuzz/FuzzTarget.h"

#include "tool/recipe/RecipeJson.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray json(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const auto recipe = RecipeJson::read(json, QStringLiteral("recipe.json"));
    if (!recipe) {
        require(!recipe.error().isEmpty(), "refused without a reason");
        return 0;
    }
    const QByteArray written = RecipeJson::write(*recipe);
    const auto again = RecipeJson::read(written, QStringLiteral("recipe.json"));
    require(again.has_value(), "own recipe is refused");
    require(RecipeJson::write(*again) == written, "another recipe");
    return 0;
}
