#pragma once

#include <QAbstractTableModel>
#include <QTableView>

namespace tk07::desktop {

class Pilota;

// All load sets at once, in the user's units. A cell is written as the five-row window would: the
// window scrolls to the row and the field takes the text.
class ModelloCarichi : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int kColonne = 8;  // description, six actions, load case
    explicit ModelloCarichi(Pilota& pilota, QObject* padre);
    void Aggiorna();
    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;
    QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    bool setData(const QModelIndex& indice, const QVariant& valore, int ruolo) override;
    // Cell texts as told, one step of undo; rows that are missing are added first.
    void Scrivi(int riga, int colonna, const QList<QStringList>& celle);

  private:
    void ScriviCella(int riga, int colonna, const QString& testo);
    QString Testo(int riga, int colonna) const;
    Pilota& pilota_;
    int righe_ = 0;
};

// The table with copy and paste of tab-separated text.
class TabellaPiena : public QTableView {
    Q_OBJECT

  public:
    TabellaPiena(Pilota& pilota, QWidget* padre);
    void Aggiorna() { modello_->Aggiorna(); }
    void Copia();
    // Takes a block from a spreadsheet; what cannot be told to be numbers leaves the table as it
    // is.
    void Incolla();

  protected:
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    Pilota& pilota_;
    ModelloCarichi* modello_;
};

}  // namespace tk07::desktop
