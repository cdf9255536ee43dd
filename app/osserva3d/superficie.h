#pragma once

#include <QImage>
#include <QPointF>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "render/pittura3d.h"
#include "solidi/viste_solidi.h"

namespace tk07::osserva3d {

// The eye goes round the joint: angles in degrees, Z stays upright.
struct Camera {
    double azimut = 50.0, elevazione = 15.0;
    Punto3 centro{};     // in the middle of the view
    double perMm = 1.0;  // pixels
    bool operator==(const Camera&) const = default;
};
Proiezione ProiezioneCamera(const Camera& c);

struct PianoSezione {
    int asse = -1;  // 0 X, 1 Y, 2 Z; -1 none
    double quota = 0.0;
    LatoTenuto lato = LatoTenuto::sotto;
    bool operator==(const PianoSezione&) const = default;
};

// How the parts are shown.
struct Aspetto3D {
    OpzioniPittura3D pittura;
    double esploso = 0.0;  // 0 in place .. 1
    PianoSezione sezione;
};

// The surface that shows parts and takes the mouse: left button turns, middle button (or left with
// Shift) moves, wheel zooms at the pointer, a click picks, right button asks for a menu. What draws
// is behind the virtual routines; the rest is common, so that both drawing ways behave alike.
class Superficie : public QWidget {
  public:
    explicit Superficie(QWidget* padre);

    // Other parts; the camera stays when asked to.
    enum class Occhio { fermo, adatta };
    void Mostra(std::vector<Parte> parti, Occhio occhio);
    const std::vector<Parte>& Parti() const { return parti_; }
    // Extent of the parts as they are shown, along an axis of the scene.
    std::pair<double, double> Estensione(int asse) const;

    Aspetto3D& Aspetto() { return aspetto_; }  // to be followed by AggiornaAspetto
    void AggiornaAspetto();
    Camera Occhio3D() const { return camera_; }
    void Guarda(const Camera& c);
    void Orienta(double azimut, double elevazione);
    void Adatta();
    void Ingrandisci(double fattore, const QPointF& fermo);
    void AttivaMisura(bool attiva);
    bool Misura() const { return misura_; }

    // What is drawn, as a picture.
    virtual QImage Immagine() = 0;

    // From the widget's point of view: part and point under a pixel.
    virtual int ParteSotto(const QPointF& dove) = 0;
    virtual std::optional<Punto3> PuntoSotto(const QPointF& dove) = 0;

    std::function<void(int parte)> suScelta;  // -1: beside the parts
    std::function<void(const QString&)> suMisura;
    std::function<void(int parte, const QPoint& schermo)> suMenu;

  protected:
    // Parts, their places or cut have changed; only colours or visibility have; the camera has.
    virtual void PartiCambiate() = 0;
    virtual void AspettoCambiato() = 0;
    virtual void CameraCambiata() = 0;
    // A press that something of the drawing's own takes (the view cube).
    virtual bool PresoDalCubo(const QPointF& dove) = 0;

    void resizeEvent(QResizeEvent*) override;
    void wheelEvent(QWheelEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

    Inquadratura Inquadra() const;
    bool Visibile(std::size_t parte) const;
    bool InMoto() const { return inMoto_; }
    // The measure's points and text over the picture.
    void DipingiMisura(QPainter& p) const;
    bool HaMisura() const { return primo_.has_value(); }
    QString TestoMisura() const;

    std::vector<Parte> parti_;     // as given
    std::vector<Parte> mostrate_;  // pulled apart
    std::vector<Maglia> maglie_;   // of those
    Aspetto3D aspetto_;
    Camera camera_;
    std::optional<Punto3> primo_, secondo_;

  private:
    void RifaiMostrate();
    void Clic(const QPointF& dove);
    Punto3 Agganciato(const QPointF& dove, const Punto3& punto) const;

    bool adattata_ = true;  // still as Adatta left it: follows the widget's size
    bool misura_ = false, inMoto_ = false;
    QPointF premuto_, ultimo_;
    Qt::MouseButton bottone_ = Qt::NoButton;
    double esplosoFatto_ = 0.0;
    PianoSezione sezioneFatta_;
};

// With OpenGL where the platform gives it a window of its own (X), else lines and shades by
// QPainter.
Superficie* FaiSuperficie(QWidget* padre);
Superficie* FaiSuperficiePittura(QWidget* padre);
// Null where it does not run.
Superficie* FaiSuperficieGl(QWidget* padre);

}  // namespace tk07::osserva3d
