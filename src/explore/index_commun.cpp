#include "explore/index_commun.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

void AjouterCodePosition(std::string& liste, long long v, int largeur) {
    if (largeur == LARGEUR_CODE_LONGUE) {
        if (v < 0 || v > MAX_POSITION_LONGUE)
            LimiteDepassee("MAX_POSITION_LONGUE", MAX_POSITION_LONGUE, "positions dans le corpus");
        const long long q0 = v / 10648000;
        liste.push_back(static_cast<char>(q0 + 34));
        v -= q0 * 10648000;
    } else if (v < 0 || v > MAX_POSITION) {
        LimiteDepassee("MAX_POSITION", MAX_POSITION, "positions dans le corpus");
    }
    const long long q1 = v / 48400;
    const long long q2 = (v - q1 * 48400) / TAILLE_TRANCHE;
    const long long q3 = v - q1 * 48400 - q2 * TAILLE_TRANCHE;
    liste.push_back(static_cast<char>(q1 + 34));
    liste.push_back(static_cast<char>(q2 + 34));
    liste.push_back(static_cast<char>(q3 + 33));
}

std::string CodePosition(long long v) { return CodePositionLarge(v, LARGEUR_CODE_COURTE); }

std::string CodePositionLarge(long long v, int largeur) {
    std::string s;
    AjouterCodePosition(s, v, largeur);
    return s;
}

int LireLargeurCode(const std::filesystem::path& index) {
    std::string contenu;
    const auto fichier = index / kFichierLargeurCode;
    if (!LirePetitFichier(fichier, contenu)) return LARGEUR_CODE_COURTE;
    while (!contenu.empty() && (contenu.back() == '\n' || contenu.back() == '\r' || contenu.back() == ' ')) contenu.pop_back();
    if (contenu == "3") return LARGEUR_CODE_COURTE;
    if (contenu == "4") return LARGEUR_CODE_LONGUE;
    throw ErreurExecution(Joindre("Largeur des codes de position inconnue (3 ou 4 attendu) dans le fichier : "_cp,
                                  TexteChemin(fichier)));
}

Casier CalculerCasier(std::string_view s) {
    if (s.empty()) return {0, 0};
    int c = Code(s[0]);
    if ((c >= 65 && c <= 90) || (c >= 192 && c <= 223)) c += 32;
    if (c == 140) c = 156;
    int lettre = 20;
    if (c >= 97 && c <= 122) {
        const int n = c - 96;
        lettre = (n == 21 || n == 22) ? 11 : (n >= 23 ? 20 : n);
    }
    return {lettre, static_cast<int>(std::min<std::size_t>(s.size(), NB_LONGUEURS))};
}

std::string NomFichierCasier(Casier c) {
    return Joindre(Nombre(c.longueur), std::string(1, static_cast<char>('a' + c.lettre - 1)), ".txt");
}

int RangLettre(std::string_view s) {
    if (s.empty()) return 0;
    const int c = Code(s[0]);
    return (c >= 97 && c <= 122) ? c - 96 : 0;
}

std::string SansAccent(std::string_view s) {
    std::string r(s);
    for (char& ch : r) {
        int c = Code(ch);
        if ((c >= 65 && c <= 90) || (c >= 192 && c <= 223)) c += 32;
        else if (c == 140) c = 156;
        if (c == 156 || (c >= 242 && c <= 246)) c = 'o';
        else if (c >= 224 && c <= 230) c = 'a';
        else if (c == 231) c = 'c';
        else if (c >= 232 && c <= 235) c = 'e';
        else if (c >= 236 && c <= 239) c = 'i';
        else if (c == 241) c = 'n';
        else if (c >= 249 && c <= 252) c = 'u';
        ch = static_cast<char>(c);
    }
    return r;
}

std::filesystem::path CheminIndex(const std::filesystem::path& liste) {
    const std::string nom = Utf8VersCp1252(liste.filename().string());
    const std::string base = nom.size() > 4 ? nom.substr(0, nom.size() - 4) : std::string();
    return Chemin(liste.parent_path(), Joindre(base, "_QORX_INDEX"));
}

void EcrirePetitFichier(const std::filesystem::path& chemin, std::string_view contenu, bool neuf) {
    // No O_TRUNC: an index written over in place keeps its files, and a file emptied by truncation
    // has its new content pushed to disk at close by ext4, one file at a time. The tail of a
    // longer old content is cut after the write instead.
    const int fd = ::open(chemin.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) throw ErreurExecution(Joindre("Impossible de créer le fichier : "_cp, TexteChemin(chemin)));
    std::size_t ecrits = 0;
    while (ecrits < contenu.size()) {
        const ssize_t n = ::write(fd, contenu.data() + ecrits, contenu.size() - ecrits);
        if (n <= 0) {
            ::close(fd);
            throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin)));
        }
        ecrits += static_cast<std::size_t>(n);
    }
    struct stat etat {};
    if (!neuf && (::fstat(fd, &etat) != 0 ||
                  (etat.st_size > static_cast<off_t>(ecrits) && ::ftruncate(fd, static_cast<off_t>(ecrits)) != 0))) {
        ::close(fd);
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin)));
    }
    if (::close(fd) != 0) throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin)));
}

bool LirePetitFichier(const std::filesystem::path& chemin, std::string& contenu) {
    contenu.clear();
    const int fd = ::open(chemin.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    char tampon[16384];
    while (true) {
        const ssize_t n = ::read(fd, tampon, sizeof tampon);
        if (n < 0) {
            ::close(fd);
            throw ErreurExecution(Joindre("Lecture impossible du fichier : "_cp, TexteChemin(chemin)));
        }
        if (n == 0) break;
        contenu.append(tampon, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return true;
}

std::string Nombre(long long v) {
    char t[24];
    const auto r = std::to_chars(t, t + sizeof t, v);
    return std::string(t, r.ptr);
}

}  // namespace telvoris
