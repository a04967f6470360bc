// Work done text by text on several threads, delivered on the calling thread in list order, so
// that what a stage writes, counts and says is the same as when it goes through the texts alone.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace telvoris {

// The threads a stage uses when the person does not say: every core of the machine.
unsigned FilsParDefaut();
// `demande` threads, 0 meaning the default.
unsigned FilsEffectifs(unsigned demande);
// The threads of a stage that rewrites each text in place, its workers reading the texts: a name
// listed twice must be read after its first rewrite, which only one thread guarantees.
unsigned FilsSansDoublon(unsigned demande, const std::vector<std::string>& noms);
bool NomsEnDouble(const std::vector<std::string>& noms);

// A file that a worker writes whole under a provisional name beside it, and that the calling
// thread puts in place (a rename) when its text's turn comes, so that the file system's cost of
// creating and filling files is shared by the threads while files still appear in list order.
// One never put in place is removed: nothing of a text after an error shows. `place` tells apart
// the provisional names of the texts under way together, since a name may be listed twice; place
// 0 is the name a single write uses (CheminProvisoire), so a run on one thread leaves what it
// always left when killed.
class FichierEnAttente {
public:
    FichierEnAttente() = default;
    FichierEnAttente(std::filesystem::path chemin, std::string_view contenu, std::size_t place);
    FichierEnAttente(FichierEnAttente&& autre) noexcept;
    FichierEnAttente& operator=(FichierEnAttente&& autre) noexcept;
    ~FichierEnAttente();
    // Gives the file its name; a failure is an execution error naming the file.
    void Publier();

private:
    void Abandonner() noexcept;
    std::filesystem::path chemin_, provisoire_;
};

// The place of text i among those under way together on `fils` threads (see TraiterDansLOrdre):
// the waiting results and the one being delivered, at most 2 * fils + 1 consecutive texts.
inline std::size_t PlaceEnCours(std::size_t i, unsigned fils) {
    return fils <= 1 ? 0 : i % (2 * static_cast<std::size_t>(fils) + 1);
}

// For every i in [0, n): `annoncer(i)` then `livrer(i, resultat)` on the calling thread, in the
// order of i, and `travail(i, ouvrier) -> R` on one of `fils` threads (ouvrier in [0, fils), so that
// each thread can keep buffers of its own). Only the calling thread may talk to the person or
// write what must appear in list order. An exception of travail(i) is thrown on the calling
// thread where livrer(i) would have been called: what comes after i in the list is never
// delivered. At most twice `fils` results wait at any time, which bounds the memory.
// With one thread, or one text, everything runs on the calling thread, one text after the other.
template <class R, class Annoncer, class Travail, class Livrer>
void TraiterDansLOrdre(std::size_t n, unsigned fils, Annoncer&& annoncer, Travail&& travail, Livrer&& livrer) {
    fils = static_cast<unsigned>(std::min<std::size_t>(std::max(1u, fils), std::max<std::size_t>(n, 1)));
    if (fils <= 1) {
        for (std::size_t i = 0; i < n; ++i) {
            annoncer(i);
            R r = travail(i, 0u);
            livrer(i, r);
        }
        return;
    }
    const std::size_t fenetre = 2 * static_cast<std::size_t>(fils);
    struct Case {
        std::optional<R> resultat;
        std::exception_ptr erreur;
        bool pret = false;
    };
    std::vector<Case> cases(fenetre);
    std::mutex m;
    std::condition_variable cv;
    std::size_t prochain = 0, livres = 0;
    bool arret = false;

    auto ouvrier = [&](unsigned numero) {
        for (;;) {
            std::size_t i;
            {
                std::unique_lock verrou(m);
                cv.wait(verrou, [&] { return arret || prochain >= n || prochain < livres + fenetre; });
                if (arret || prochain >= n) return;
                i = prochain++;
            }
            std::optional<R> r;
            std::exception_ptr e;
            try {
                r.emplace(travail(i, numero));
            } catch (...) {
                e = std::current_exception();
            }
            std::lock_guard verrou(m);
            Case& c = cases[i % fenetre];
            c.resultat = std::move(r);
            c.erreur = e;
            c.pret = true;
            cv.notify_all();
            // After an error nothing further is needed; the caller stops the others.
            if (e) return;
        }
    };

    // Stops and joins the threads however the calling thread leaves.
    struct Equipe {
        std::vector<std::thread> fils;
        std::mutex& m;
        std::condition_variable& cv;
        bool& arret;
        ~Equipe() {
            {
                std::lock_guard verrou(m);
                arret = true;
            }
            cv.notify_all();
            for (auto& t : fils) t.join();
        }
    } equipe{{}, m, cv, arret};
    for (unsigned k = 0; k < fils; ++k) equipe.fils.emplace_back(ouvrier, k);

    for (std::size_t i = 0; i < n; ++i) {
        annoncer(i);
        std::optional<R> r;
        std::exception_ptr e;
        {
            std::unique_lock verrou(m);
            Case& c = cases[i % fenetre];
            cv.wait(verrou, [&] { return c.pret; });
            r = std::move(c.resultat);
            e = c.erreur;
            c = Case{};
            livres = i + 1;
        }
        cv.notify_all();
        if (e) std::rethrow_exception(e);
        livrer(i, *r);
    }
}

}  // namespace telvoris
