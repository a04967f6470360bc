#include "vues_corpus.hpp"

#include "core/liste_textes.hpp"
#include "corpus_test.hpp"
#include "explore/indexation.hpp"

namespace telvoris::test {

std::filesystem::path CorpusVues(const std::filesystem::path& racine, const std::set<std::string>& courts) {
    const auto liste = EcrireCorpus(
        racine,
        {{"a",
          {PartitionTest{"<QORX_ATTR JOURNAL=A TITRE_COURT=X >",
                         {"<M f=Le l=le_DA >Le <M f=chat l=chat_SM x=ms >chat <M f=dort l=dormir_V x=3a >dort<PC f=. l=PT >."}},
           PartitionTest{"<QORX_ATTR JOURNAL=B TITRE_COURT=X >",
                         {"<M f=la l=le_DA x=fs >la <M f=maison l=maison_SF x=fs >maison <M f=rouge l=rouge_J x=fs >rouge"}}}},
         {"b",
          {PartitionTest{"<QORX_ATTR JOURNAL=A TITRE_COURT=Y >",
                         {"<M f=un l=un_DI >un <M f=chat l=chat_SM x=ms >chat <M f=voit l=voir_V x=3a >voit "
                          "<M f=le l=le_DA >le <M f=chat l=chat_SM x=ms >chat"}}}}},
        courts);
    DialogueScripte d;
    const auto l = ChargerListeTextes(liste);
    std::filesystem::create_directories(DossierIndex(l));
    ConstruireIndex(l, DossierIndex(l), true, d);
    return liste;
}

EtatCorpus OuvrirCorpusVues(const std::filesystem::path& liste) {
    EtatCorpus etat = OuvrirCorpus(liste);
    DialogueScripte d;
    ValiderCorpus(etat, {{0}, 0}, d);
    return etat;
}

}  // namespace telvoris::test
