#include "explore/ecriture_fond.hpp"

#include <utility>

#include "explore/index_commun.hpp"

namespace telvoris {

EcritureDeFond::EcritureDeFond(std::size_t enAttenteMax) : enAttenteMax_(enAttenteMax), fil_([this] { Boucle(); }) {}

EcritureDeFond::~EcritureDeFond() {
    {
        std::lock_guard l(mutex_);
        fin_ = true;
    }
    travail_.notify_all();
    fil_.join();
}

void EcritureDeFond::Relancer() {
    if (erreur_) std::rethrow_exception(std::exchange(erreur_, nullptr));
}

void EcritureDeFond::Ecrire(std::filesystem::path chemin, std::string contenu) {
    std::unique_lock l(mutex_);
    // One file larger than the bound still goes through, alone.
    place_.wait(l, [&] { return erreur_ || enAttente_ == 0 || enAttente_ + contenu.size() <= enAttenteMax_; });
    Relancer();
    enAttente_ += contenu.size();
    file_.push_back({std::move(chemin), std::move(contenu)});
    l.unlock();
    travail_.notify_one();
}

void EcritureDeFond::Terminer() {
    std::unique_lock l(mutex_);
    place_.wait(l, [&] { return erreur_ || (file_.empty() && !occupe_); });
    Relancer();
}

void EcritureDeFond::Boucle() {
    std::unique_lock l(mutex_);
    while (true) {
        travail_.wait(l, [&] { return fin_ || !file_.empty(); });
        if (file_.empty()) return;
        Fichier f = std::move(file_.front());
        file_.pop_front();
        occupe_ = true;
        l.unlock();
        std::exception_ptr e;
        try {
            EcrirePetitFichier(f.chemin, f.contenu);
        } catch (...) {
            e = std::current_exception();
        }
        l.lock();
        occupe_ = false;
        enAttente_ -= f.contenu.size();
        if (e && !erreur_) erreur_ = e;
        // After a failure the rest is dropped: the build stops at the next call.
        if (erreur_) {
            for (const auto& reste : file_) enAttente_ -= reste.contenu.size();
            file_.clear();
        }
        place_.notify_all();
    }
}

}  // namespace telvoris
