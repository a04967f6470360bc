// The parameter panel of the survey commands (level, sentence limit, span), asked as prompts.
#pragma once

#include <optional>

#include "core/dialogue.hpp"

namespace telvoris {

// The command that the panel starts: "lex", "tg_lex", "lexmu", "mic", "mac".
enum class ModeReleve { Lex, TgLex, LexMu, Mic, Mac };

// The span when none is set: the whole line.
inline constexpr long long EMPAN_SANS_LIMITE = 10000;

struct ParametresReleve {
    int NiveauLexical = 0;         // 0 forms folded, 1 forms as written, 2 lemmas, 3 proper nouns
    bool LimitePhrase = false;     // "relevé limité à la phrase ?"
    bool EmpanFixe = false;        // "limité à un empan cotextuel ?"
    long long Empan = EMPAN_SANS_LIMITE;
};

// Asks the panel's fields one by one, with its defaults: the level, then in the modes lex, mic and
// tg_lex the sentence limit, the span option and, after "O", its size. A wrong answer is told and
// the run does not begin (nullopt), as does Cancel; an empty span gives the panel's message.
std::optional<ParametresReleve> DemanderParametresReleve(Dialogue& dialogue, ModeReleve mode);

}  // namespace telvoris
