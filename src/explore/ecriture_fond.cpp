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
    place_.wait(l, [&] { return erreur_ || enAttente_ == 0 || enAttente_ + contenu.size() <= enAttenteMax_; });
    Relancer();
    enAttente_ += contenu.size();
    Voie& v = voies_[static_cast<std::size_t>(voie < 0 ? 0 : voie % NB_VOIES)];
    v.file.push_back({std::move(chemin), std::move(contenu)});
    l.unlock();
    v.travail.notify_one();
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
    std::unique_lock l(mutex_);
    while (true) {
        v.travail.wait(l, [&] { return fin_ || !v.file.empty(); });
        if (v.file.empty()) return;
        Fichier f = std::move(v.file.front());
        v.file.pop_front();
        v.occupe = true;
        l.unlock();
        std::exception_ptr e;
        try {
            EcrirePetitFichier(f.chemin, f.contenu, neuf_);
        } catch (...) {
            e = std::current_exception();
        }
        l.lock();
        v.occupe = false;
        enAttente_ -= f.contenu.size();
        if (e && !erreur_) erreur_ = e;
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
