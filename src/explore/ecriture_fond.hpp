// Files written by a second thread while the index builder goes on computing: the builder hands
// over each file's whole content, and the thread writes it in one call.
#pragma once

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
    // `enAttenteMax`: bytes handed over but not yet written before Ecrire waits.
    explicit EcritureDeFond(std::size_t enAttenteMax = 64u << 20);
    ~EcritureDeFond();
    EcritureDeFond(const EcritureDeFond&) = delete;
    EcritureDeFond& operator=(const EcritureDeFond&) = delete;

    // Queues the file; the first failure of the thread is thrown here or by Terminer.
    void Ecrire(std::filesystem::path chemin, std::string contenu);
    // Waits until every queued file is written.
    void Terminer();

private:
    void Boucle();
    void Relancer();

    struct Fichier {
        std::filesystem::path chemin;
        std::string contenu;
    };
    std::mutex mutex_;
    std::condition_variable travail_, place_;
    std::deque<Fichier> file_;
    std::size_t enAttente_ = 0, enAttenteMax_;
    bool fin_ = false, occupe_ = false;
    std::exception_ptr erreur_;
    std::thread fil_;
};

}  // namespace telvoris
