#pragma once

#include <QAbstractTableModel>
#include <QLabel>
#include <QTableView>
#include <QWidget>

#include "verification/riepilogo.h"

class QSortFilterProxyModel;

namespace tk07::desktop {

class Pilota;

// Load sets as rows: governing check, its ratio, the ratio of each family.
class ModelloRiepilogo : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Colonna { kNumero, kNome, kGoverna, kRapporto, kPrimaFamiglia };
    static constexpr int kOrdine = Qt::UserRole, kValore = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;
    void Metti(const Riepilogo& riepilogo, const Nodo& nodo);
    const RigaRiepilogo* Riga(int riga) const;
    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;

  private:
    std::vector<RigaRiepilogo> righe_;
    std::vector<QString> nomi_;
};

// The summary of the verification, live or of the last run.
class PaginaRiepilogo : public QWidget {
    Q_OBJECT

  public:
    PaginaRiepilogo(Pilota& pilota, QWidget* padre);
    void Aggiorna();
    // Row selected, nullptr for none.
    const RigaRiepilogo* Scelta() const;
    // Selects the row of a load set (from 0), if it is shown.
    void Scegli(int sestetto);
    QTableView* Tabella() const { return tabella_; }

  Q_SIGNALS:
    void sceltaCambiata();
    // A failing row was double-clicked: to the governing element of that load set.
    void vaiAllaParte(int famiglia, const QString& elemento);
    void vaiAllaRelazione(int sestetto, const QString& nome);

  private:
    void Apri(const QModelIndex& indice);

    Pilota& pilota_;
    ModelloRiepilogo* modello_;
    QSortFilterProxyModel* ordinato_;
    QTableView* tabella_;
    QLabel* esito_;
    QLabel* stato_;
    int sestettoScelto_ = -1;
    bool aggiornando_ = false;
};

}  // namespace tk07::desktop
