#pragma once

#include <QString>
#include <vector>

#include "finestre/finestra_file.h"
#include "osserva3d/superficie.h"
#include "scene3d/scena.h"

class QComboBox;
class QLabel;
class QListWidget;
class QSlider;

namespace tk07::osserva3d {

inline constexpr const char* kTitoloOsserva = "Osserva3D - ";

// Solids of a scene file; false with the file's name and the reason in `errore`.
bool LeggiSolidi(const std::string& file, Scena& scena, std::vector<Parte>& parti,
                 std::string& errore);

// The viewer's window: one scene, its parts, how they are shown, measuring, export. When the file
// is read again the camera stays.
class Finestra3D : public FinestraFile {
  public:
    // `fai` makes the surface that draws.
    explicit Finestra3D(Superficie* (*fai)(QWidget*) = FaiSuperficie);

    bool Esporta(const QString& file);  // step, glb, stl: the parts in view; png: the picture
    void Scegli(int parte);             // -1: none
    void Nascondi(int parte);
    void Isola(int parte);
    void MostraTutti();
    Superficie* Vista() { return vista_; }

  protected:
    bool Leggi(const QString& file, QString& errore) override;
    void Aperto(bool letto) override;

  private:
    void FaiMenu();
    QWidget* FaiPezzi();
    QWidget* FaiAspetto();
    void AggiornaPezzi();
    void CambiaVisibili(const std::vector<bool>& v);
    void CambiaSezione();
    void MenuPezzo(int parte, const QPoint& dove);
    void ChiediFile();
    void ChiediEsporta();

    Superficie* vista_;
    QLabel *dettagli_, *misura_;
    QListWidget* pezzi_;
    QComboBox *asse_, *modo_;
    QSlider *quota_, *esploso_, *trasparenza_;
    Scena scena_;
};

// Standard views by number, as keys 1 to 7: angles of the camera, and what they are called. The
// seventh takes the scene's own angles.
inline constexpr int kViste = 7;
struct VistaNota {
    const char* nome;
    double azimut, elevazione;
};
VistaNota VistaNumero(int numero, const Scena& scena);

}  // namespace tk07::osserva3d
