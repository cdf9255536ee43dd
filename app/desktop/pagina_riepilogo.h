#pragma once

#include <QAbstractTableModel>
#include <QLabel>
#include <QTableView>
#include <QWidget>

#include "verification/esiti.h"

class QSortFilterProxyModel;

namespace tk07::desktop {

class Pilota;

// Load sets as rows: governing check, its ratio, the ratio of each family.
class ModelloRiepilogo : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Colonna { kNumero, kNome, kGoverna, kRapporto, kPrimaFamiglia };
    static constexpr int kOrdine = Qt::UserRole, kValore = Qt::UserRole + 1,
                         kPassa = Qt::UserRole + 2;

    using QAbstractTableModel::QAbstractTableModel;
    void Metti(const Esiti& esiti, const Nodo& nodo);
    const Esiti& GliEsiti() const { return esiti_; }
    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;

  private:
    const Riscontro* Riga(const QModelIndex& indice) const;

    Esiti esiti_;  // row i: load set i
    std::vector<QString> nomi_;
};

// The summary of the verification, live or of the last run.
class PaginaRiepilogo : public QWidget {
    Q_OBJECT

  public:
    PaginaRiepilogo(Pilota& pilota, QWidget* padre);
    void Aggiorna();
    // Load set (from 0) of the row selected, -1 for none.
    int Scelta() const;
    // Selects the row of a load set (from 0), if it is shown.
    void Scegli(int sestetto);
    QTableView* Tabella() const { return tabella_; }

  Q_SIGNALS:
    void sceltaCambiata();
    // A failing row was double-clicked: to the governing element of that load set.
    void vaiAllaParte(Famiglia famiglia, int elemento);
    void vaiAllaRelazione(int sestetto, const QString& nome);

  private:
    void Apri(const QModelIndex& indice);

    Pilota& pilota_;
    QLabel* acciaio_ = nullptr;
    QWidget* visto_ = nullptr;
    ModelloRiepilogo* modello_;
    QSortFilterProxyModel* ordinato_;
    QTableView* tabella_;
    QLabel* esito_;
    QLabel* stato_;
    int sestettoScelto_ = -1;
    bool aggiornando_ = false;
};

}  // namespace tk07::desktop
