#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <kova/model/KOVARGBColor.h>
#include <kova/model/KOVASelectionSet.h>
#include <kova/model/KOVASurfacicShell.h>

namespace toolkit {

struct Material {
    std::string name;
    KOVARGBColor color; ///< its alpha is how opaque it is
};

std::string nameOf(KOVASelectionSet const& group);

/// An object, or what lies in the same groups: what shells belong to.
struct Part {
    std::string name;                                 ///< of the object; empty where it has none
    int key;                                          ///< of its shells
    std::vector<KOVASelectionSet const*> groups = {}; ///< those that it is a member of, in the order of the file
    long long triangles = 0;                          ///< that came so far

    /// For formats that know one name: the object's, else those of the groups.
    std::string title() const;
};

/// What a model has beside its shells. It grows while the model is read, and what was added stays in its place.
class Scene {
public:
    Scene() = default;
    Scene(Scene const&) = delete;
    Scene& operator=(Scene const&) = delete;

    /// A new part, a member of the groups of these names.
    Part& addPart(std::string_view name, std::vector<std::string> const& groups = {});
    /// One more of the part, in the same groups, for the instance of the model with this number, counted from 1.
    Part& addInstance(Part const& part, std::size_t number);
    Material& addMaterial(std::string_view name);

    std::deque<Part>& parts() noexcept { return parts_; }

private:
    std::deque<Part> parts_;
    std::deque<KOVASelectionSet> groups_;
    std::unordered_map<std::string, KOVASelectionSet*> groupsByName_;
    std::deque<Material> materials_;
};

/// Some triangles of a part, one after the other in the order of the file: so a model flows from the reader to the
/// writer, and nobody holds more of it than they have to.
///
/// The shell's key is the part's, its pass counts the pieces of the whole model. Its face list has three point
/// numbers a triangle. It has as many normals and colours as points, or none; where only some points have a colour, the
/// others have kNoColor (color.h). Its arrays belong to who sends it, and are gone afterwards.
struct Piece {
    Part& part;
    Material const* material; ///< null for none
    KOVASurfacicShell& shell;
    float const* alphas = nullptr; ///< how opaque the colour of each point is; null where all are wholly
};

/// Where readers put a model.
class ModelSink {
public:
    virtual ~ModelSink() = default;

    virtual Scene& scene() = 0;
    /// A hint: so many triangles may come, hardly more.
    virtual void reserve(std::size_t triangles) = 0;
    /// May change the shell's arrays. Throws what ends the translation.
    virtual void add(Piece const& piece) = 0;
};

} // namespace toolkit
