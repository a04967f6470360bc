// Projections of a finalised correspondence analysis for the map viewers: the flat map of two
// factors (`_PROJ` file) and the globe of three factors (`_PLANISPH_` file), with their panel.
#pragma once

#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "core/contexte.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_ITEMS_PROJECTION = 1200;
inline constexpr std::size_t MAX_FACTEURS_GLOBE = 50;
inline constexpr std::size_t MAX_FACTEURS_PLAN = 25;

// The panel OP_Paramètres: the factors of the axes (0 when the field was left empty) and the six
// check boxes, in the order of the panel.
struct ParametresProjection {
    std::vector<long long> axes;
    bool coordColonnes = true;
    bool coordLignes = true;
    bool valeursPropres = true;
    bool nomsColonnes = true;  // no effect on the file
    bool nomsLignes = true;    // no effect on the file
    bool trace = false;
};

// Asks the panel's fields as prompts, one a field, with the panel's defaults: the axes (two or
// three), then the check boxes. A field that is not a number, or a factor given twice, shows its
// message and the projection does not begin (nullopt), as does Cancel; a factor above 10 only
// warns. An empty axis field is kept as 0 and judged at validation.
std::optional<ParametresProjection> DemanderParametresProjection(Dialogue& dialogue, int dimensions);

// Placing on the flat map: from the values x, y (Round(coordinate x 1000)) to integers of the
// square 0 to 10,000 with the origin at (5000, 5000). All x at 0 is a division by zero.
std::vector<std::pair<long long, long long>> PlacerPlan(const std::vector<std::pair<long long, long long>>& xy);

// The contribution code of an item among `n`: 2 above 6 / n, 1 above 3 / n, else 0.
int CodeContribution(double contribution, std::size_t n);

// A point of the globe, in degrees: longitude from the +y axis towards +x (0 to 360), latitude,
// and the distance to the centre.
struct PointGlobe {
    double longitude = 0, latitude = 0, distance = 0;
};
PointGlobe PlacerGlobe(double x, double y, double z);

// The runs, once the panel has been validated: they ask for the coordinate files and return the
// file written, or nullopt when the run stops on a message.
std::optional<std::filesystem::path> ProjeterPlan(Dialogue& dialogue, const ParametresProjection& p);
std::optional<std::filesystem::path> ProjeterGlobe(Dialogue& dialogue, const ParametresProjection& p);

// smn_p2 "Projection 2 Facteurs" and smn_p3 "Projection 3 Facteurs".
void OperationProjection2(Contexte& ctx);
void OperationProjection3(Contexte& ctx);

}  // namespace telvoris
