// Files written by background threads while the index builder goes on computing: the builder
// hands over each file's whole content, and a thread writes it in one call.
#pragma once

#include <array>
#include <condition_variable>
#include <deque>
#include <exception>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

namespace telvoris {

class EcritureDeFond {
public:
    // Two lanes, each with its thread: creating a file is mostly kernel work on the folder that
    // holds it, so two folders filled at once use both cores. Files of one lane are written in the
    // order they are handed over.
    static constexpr int NB_VOIES = 2;

    // `enAttenteMax`: bytes handed over but not yet written before Ecrire waits. `neuf`: the
    // files do not exist yet (a tree built in an empty folder), so nothing of an older content
    // has to be cut after the write.
    explicit EcritureDeFond(std::size_t enAttenteMax = 64u << 20, bool neuf = false);
    ~EcritureDeFond();
    EcritureDeFond(const EcritureDeFond&) = delete;
    EcritureDeFond& operator=(const EcritureDeFond&) = delete;

    // Queues the file on lane `voie` (0 or 1); the first failure of a thread is thrown here or by
    // Terminer.
    void Ecrire(std::filesystem::path chemin, std::string contenu, int voie = 0);
    // Waits until every queued file is written.
    void Terminer();

private:
    void Boucle(int voie);
    void Relancer();

    struct Fichier {
        std::filesystem::path chemin;
        std::string contenu;
    };
    struct Voie {
        std::deque<Fichier> file;
        bool occupe = false;
        std::condition_variable travail;
    };
    std::mutex mutex_;
    std::condition_variable place_;
    std::array<Voie, NB_VOIES> voies_;
    std::size_t enAttente_ = 0, enAttenteMax_;
    bool neuf_;
    bool fin_ = false;
    bool attendPlace_ = false;  // Ecrire waits for room
    std::exception_ptr erreur_;
    std::array<std::thread, NB_VOIES> fils_;
};

}  // namespace telvoris
