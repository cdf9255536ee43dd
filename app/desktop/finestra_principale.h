#pragma once

#include <QMainWindow>
#include <map>
#include <memory>

#include "desktop/legame.h"
#include "desktop/recenti.h"
#include "verification/esiti.h"

class QAction;
class QLabel;
class QMenu;
class QTabWidget;

namespace tk07::desktop {

class PaginaRiepilogo;
class PannelloSecondario;
class PiantaBulloni;
class Pilota;
class SchizzoSezione;
class TabellaPiena;
class VistaNodo;
class VistaRelazione;

// The main panel: input pages on the left; drawing, summary and report on the right.
class FinestraPrincipale : public QMainWindow {
    Q_OBJECT

  public:
    explicit FinestraPrincipale(Pilota& pilota);
    ~FinestraPrincipale() override;

    Legame& IlLegame() { return *legame_; }
    // Window of an open secondary panel; nullptr when it is closed.
    PannelloSecondario* Secondario(const std::string& nome) const;
    VistaNodo& LaVista() { return *vista_; }
    PaginaRiepilogo& IlRiepilogo() { return *riepilogo_; }
    VistaRelazione& LaRelazione() { return *relazione_; }
    // Opens a joint as the command Apri does, without its dialog.
    void ApriFile(const std::string& file);
    // The report in its own page.
    void MostraRelazione(const QString& percorso);

  protected:
    void changeEvent(QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

  private:
    void ComponiBarra();
    void ComponiMenu();
    QWidget* ComponiSinistra();
    QWidget* ComponiDestra();
    void Intesta(QWidget* gruppo, int riga, const std::vector<std::pair<int, const char*>>& testi);
    void Aggiorna();
    void AggiornaDisegno();
    void AggiornaColori();
    void AllineaPannelli();
    void AggiornaMenu();
    void VaiAlCampo(const std::string& campo);
    void VaiAllaParte(Famiglia famiglia, int elemento);

    Pilota& pilota_;
    Legame* legame_;
    std::unique_ptr<Recenti> recenti_;
    std::map<std::string, PannelloSecondario*> secondari_;
    QTabWidget* schede_ = nullptr;
    QTabWidget* destra_ = nullptr;
    VistaNodo* vista_ = nullptr;
    PaginaRiepilogo* riepilogo_ = nullptr;
    VistaRelazione* relazione_ = nullptr;
    TabellaPiena* tabella_ = nullptr;
    PiantaBulloni* schema_ = nullptr;
    SchizzoSezione* sezioni_[2] = {nullptr, nullptr};
    QAction* annulla_ = nullptr;
    QAction* ripeti_ = nullptr;
    QMenu* menuRecenti_ = nullptr;
    std::string recente_ = "-";  // file at the head of the recent ones
};

}  // namespace tk07::desktop
