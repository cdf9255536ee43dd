#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "session/recupero.h"
#include "session/sessione.h"
#include "session/storia.h"
#include "verification/esame.h"

namespace tk07::desktop {

// Drives the session for the windows: every command passes here, so that each is one step of undo,
// the windows follow the panels' state afterwards, and the joint is judged while it changes. Holds
// no rule of the joint.
class Pilota : public QObject {
    Q_OBJECT

  public:
    explicit Pilota(QObject* padre = nullptr);
    ~Pilota() override;

    // Starts the session; false when it failed, the reason was told.
    bool Avvia(const struct Avvio& avvio);

    Sessione& LaSessione() { return *s_; }
    const Sessione& LaSessione() const { return *s_; }

    // Runs a command of the session: the field in hand is left first. `cosa` is what undo calls it.
    void Fai(const QString& cosa, const std::function<void()>& comando);
    // The same without an own step: pointer moves, timers, scrolling.
    void Muovi(const std::function<void()>& comando);
    // What leaves the field in hand (set by the binding of the field).
    void InMano(const std::string& pannello, const std::string& campo,
                const std::function<void()>& lascia);
    void NonPiuInMano(const std::string& pannello, const std::string& campo);
    const std::string& CampoInMano() const { return campo_; }
    // The field's text while it is typed: joint and judgement with it, nothing stored.
    void TestoInCorso(const std::string& campo, const std::string& testo);

    void Annulla();
    void Ripeti();
    const Storia& LaStoria() const { return storia_; }

    // Live judgement; off, the view keeps the last verification, marked as superseded.
    bool DalVivo() const { return dalVivo_; }
    void ImpostaDalVivo(bool acceso);
    // The joint to draw: with the text being typed, if any.
    const Nodo& NodoMostrato() const { return *mostrato_; }
    const Esame& LEsame() const { return esame_; }
    // Findings to show: live, or of the last verification; with their joint.
    const Esiti& GliEsiti() const;
    const Nodo& NodoDegliEsiti() const;
    bool EsitiValidi() const;
    // Stress plane of a load set of the findings [daN/mm2]; nothing when they are of a joint that
    // has changed since.
    std::optional<Tab1<double, 1, 3>> PianoDegliEsiti(int s) const;
    // The findings are those of the report: verified, and nothing typed since.
    bool ComeRelazione() const { return s_->RisultatiValidi && !scrivendo_; }
    bool Superati() const { return haVerifica_ && !ComeRelazione(); }
    bool HaVerifica() const { return haVerifica_; }
    // Time of the last redraw of the judgement [ms].
    double UltimoEsameMs() const { return ultimoMs_; }

    // Whether the joint, or a text being typed, differs from what was read or written last.
    bool DaSalvare() const;
    // The steel before and after a change of method that changed it too, until it is acknowledged
    // or undone; both empty: none.
    const std::pair<std::string, std::string>& AcciaioCambiato() const { return acciaioCambiato_; }
    void AcciaioVisto();

    // The file chosen last in a dialog; empty before.
    const std::string& UltimoFile() const { return ultimoFile_; }
    // Presses one of the two save buttons and tells where the joint was written. Save asks first
    // (ChiediSalva) where the file is one that this run neither opened nor wrote, has changed on
    // disk since, or is elsewhere than where the joint came from. Another's file is kept among the
    // automatic copies before it is replaced.
    void Salva(const std::string& pulsante);
    // What asks before Save: the file and the reasons, in words. Until one is set, a box of the
    // session's port with OK and Cancel.
    enum class Salvare { scrivi, conNome, rinuncia };
    std::function<Salvare(const QString& testo)> chiediSalva;
    // Whether a joint file can be opened without a fatal fault; told when not.
    bool Leggibile(const std::string& file) const;
    // The joint was read from that file: saving over it takes nobody by surprise.
    void Conosci(const std::string& file);
    // Writes the automatic copy now, if the joint has changed.
    void CopiaOra();

  Q_SIGNALS:
    void cambiato();           // after every command: windows copy the state
    void mosso();              // state of panels alone: pointer, timers
    void anteprimaCambiata();  // joint to draw or judgement have changed
    void campoInManoCambiato();
    void relazioneScritta(const QString& percorso);
    void finito(int codice);
    void avviso(const QString& testo);  // for the status bar

  private:
    void DopoComando();
    std::string PercheChiedere(const std::string& file) const;
    void AvvisaLetturaParziale();
    void Esamina();

    std::unique_ptr<Sessione> s_;
    Storia storia_;
    std::unique_ptr<CopieAutomatiche> copie_;
    std::unique_ptr<Nodo> mostrato_, nodoVerificato_;
    Esame esame_;
    Esiti verificato_;
    bool haVerifica_ = false;
    bool dalVivo_ = true;
    bool scrivendo_ = false;  // a text is being typed, and the joint shown has it
    int inCorso_ = 0;
    std::string ultimoFile_;
    // Files opened or written by this run, with the fingerprint of what they held then.
    std::map<std::string, std::optional<std::uint64_t>> conosciuti_;
    std::unique_ptr<Nodo> salvato_;  // the joint as it was read or written last
    FileDelNodo fileVisto_;
    std::pair<std::string, std::string> acciaioCambiato_;
    double ultimoMs_ = 0.0;
    std::string pannelloInMano_, campo_;
    std::function<void()> lascia_;
    QTimer copia_{this};
};

}  // namespace tk07::desktop
