#include "explore/ecriture_fond.hpp"

#include <utility>

#include "explore/index_commun.hpp"

namespace telvoris {

EcritureDeFond::EcritureDeFond(std::size_t enAttenteMax, bool neuf) : enAttenteMax_(enAttenteMax), neuf_(neuf) {
    for (int v = 0; v < NB_VOIES; ++v) fils_[static_cast<std::size_t>(v)] = std::thread([this, v] { Boucle(v); });
}

EcritureDeFond::~EcritureDeFond() {
    {
        std::lock_guard l(mutex_);
        fin_ = true;
    }
    for (auto& v : voies_) v.travail.notify_all();
    for (auto& f : fils_) f.join();
}

void EcritureDeFond::Relancer() {
    if (erreur_) std::rethrow_exception(std::exchange(erreur_, nullptr));
}

void EcritureDeFond::Ecrire(std::filesystem::path chemin, std::string contenu, int voie) {
    std::unique_lock l(mutex_);
    // One file larger than the bound still goes through, alone.
    if (!(erreur_ || enAttente_ == 0 || enAttente_ + contenu.size() <= enAttenteMax_)) {
        attendPlace_ = true;
        place_.wait(l, [&] { return erreur_ || enAttente_ == 0 || enAttente_ + contenu.size() <= enAttenteMax_; });
        attendPlace_ = false;
    }
    Relancer();
    enAttente_ += contenu.size();
    Voie& v = voies_[static_cast<std::size_t>(voie < 0 ? 0 : voie % NB_VOIES)];
    // A lane that has work left goes on without being woken: one wake-up a batch, not a file.
    const bool reveiller = v.file.empty() && !v.occupe;
    v.file.push_back({std::move(chemin), std::move(contenu)});
    l.unlock();
    if (reveiller) v.travail.notify_one();
}

void EcritureDeFond::Terminer() {
    std::unique_lock l(mutex_);
    place_.wait(l, [&] {
        if (erreur_) return true;
        for (const auto& v : voies_)
            if (!v.file.empty() || v.occupe) return false;
        return true;
    });
    Relancer();
}

void EcritureDeFond::Boucle(int numero) {
    Voie& v = voies_[static_cast<std::size_t>(numero)];
    std::deque<Fichier> lot;
    std::unique_lock l(mutex_);
    while (true) {
        v.travail.wait(l, [&] { return fin_ || !v.file.empty(); });
        if (v.file.empty()) return;
        // Everything queued on the lane is taken at once.
        lot.swap(v.file);
        v.occupe = true;
        l.unlock();
        std::exception_ptr e;
        std::size_t total = 0, rendus = 0, ecrits = 0;
        for (const auto& f : lot) total += f.contenu.size();
        // Each content is freed once written, so that the bytes counted are the bytes held.
        try {
            for (auto& f : lot) {
                EcrirePetitFichier(f.chemin, f.contenu, neuf_);
                ecrits += f.contenu.size();
                std::string().swap(f.contenu);
                // The memory of written files is given back to the builder as it goes.
                if (ecrits >= (1u << 20)) {
                    std::lock_guard g(mutex_);
                    enAttente_ -= ecrits;
                    rendus += ecrits;
                    ecrits = 0;
                    if (attendPlace_) place_.notify_all();
                }
            }
        } catch (...) {
            e = std::current_exception();
        }
        l.lock();
        // What is left of the batch, written or dropped after a failure.
        enAttente_ -= total - rendus;
        v.occupe = false;
        if (e && !erreur_) erreur_ = e;
        lot.clear();
        // After a failure the rest is dropped: the build stops at the next call.
        if (erreur_)
            for (auto& autre : voies_) {
                for (const auto& reste : autre.file) enAttente_ -= reste.contenu.size();
                autre.file.clear();
            }
        place_.notify_all();
    }
}

}  // namespace telvoris
