#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/segmenteur.hpp"

namespace telvoris {

namespace {

const std::array kOperations = {
    Operation{"smn_seg", "Form2", "&Etablissement"_cp, "&Segmentation"_cp, &OperationSegmentation},
    Operation{"smn_idx", "Form2", "&Etablissement"_cp, "Réindexer"_cp, &OperationReindexation},
};

}  // namespace

std::span<const Operation> Operations() { return kOperations; }

const Operation* TrouverOperation(std::string_view nom) {
    std::string_view zone;
    if (const auto point = nom.find('.'); point != std::string_view::npos) {
        zone = nom.substr(0, point);
        nom = nom.substr(point + 1);
    }
    const Operation* trouvee = nullptr;
    for (const auto& op : kOperations) {
        if (op.id != nom) continue;
        if (!zone.empty()) {
            if (op.zone == zone) return &op;
            continue;
        }
        if (!trouvee || op.zone == "Form2") trouvee = &op;
    }
    return trouvee;
}

}  // namespace telvoris
