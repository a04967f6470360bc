// What every operation receives: the person, the clock and the resource tree.
#pragma once

#include <filesystem>

#include "core/dialogue.hpp"
#include "core/horloge.hpp"

namespace telvoris {

struct Contexte {
    Dialogue& dialogue;
    const Horloge& horloge;
    // The root of the resource tree (the folder MORVENTA/morv_res).
    std::filesystem::path ressources;
    // The threads of the stages that work text by text; 0: every core.
    unsigned fils = 0;
};

}  // namespace telvoris
