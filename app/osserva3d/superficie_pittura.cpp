// Lines and shades by QPainter: runs everywhere.

#include <QPainter>
#include <QPolygonF>
#include <array>
#include <cmath>

#include "osserva3d/superficie.h"
#include "scene3d/terna.h"

namespace tk07::osserva3d {

namespace {

constexpr double kCubo = 78.0, kLatoCubo = 25.0;  // from the corner; half an edge [pixels]

struct FacciaCubo {
    const char* nome;
    Punto3 normale;
    double azimut, elevazione;
};
const std::array<FacciaCubo, 6> kFacce = {{{"DESTRA", {1, 0, 0}, 0, 0},
                                           {"SINISTRA", {-1, 0, 0}, 180, 0},
                                           {"RETRO", {0, 1, 0}, 90, 0},
                                           {"FRONTE", {0, -1, 0}, -90, 0},
                                           {"ALTO", {0, 0, 1}, -90, 90},
                                           {"BASSO", {0, 0, -1}, -90, -90}}};

class SuperficiePittura final : public Superficie {
  public:
    using Superficie::Superficie;

    QImage Immagine() override {
        QImage im(size(), QImage::Format_RGB32);
        im.fill(Qt::white);
        QPainter p(&im);
        Dipingi(p);
        return im;
    }
    int ParteSotto(const QPointF& dove) override {
        const int x = static_cast<int>(dove.x()), y = static_cast<int>(dove.y());
        Scegliendo();
        if (x < 0 || y < 0 || x >= quadro_.larghezza || y >= quadro_.altezza) return -1;
        return quadro_.parti[Indice(x, y)];
    }
    std::optional<Punto3> PuntoSotto(const QPointF& dove) override {
        if (ParteSotto(dove) < 0) return std::nullopt;
        const auto i = Indice(static_cast<int>(dove.x()), static_cast<int>(dove.y()));
        return Inquadra().Punto(dove.x(), dove.y(), static_cast<double>(quadro_.profondita[i]));
    }

  protected:
    void PartiCambiate() override {
        if (aspetto_.sezione.asse >= 0) {
            mostrate_ = Tagliate(mostrate_, aspetto_.sezione.asse, aspetto_.sezione.quota,
                                 aspetto_.sezione.lato);
            maglie_ = Maglie(mostrate_);
        }
        pronta_ = QImage();
    }
    void AspettoCambiato() override { pronta_ = QImage(); }
    void CameraCambiata() override { pronta_ = QImage(); }

    bool PresoDalCubo(const QPointF& dove) override {
        for (const auto& [faccia, forma] : Facce()) {
            if (!forma.containsPoint(dove, Qt::OddEvenFill)) continue;
            Orienta(faccia->azimut, faccia->elevazione);
            return true;
        }
        return false;
    }
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        // The picture is kept until something changes; while it moves it is a quick one.
        if (pronta_.size() != size() || svelta_ != InMoto()) {
            svelta_ = InMoto();
            pronta_ = Immagine();
        }
        p.drawImage(0, 0, pronta_);
        DipingiMisura(p);
    }

  private:
    std::size_t Indice(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(quadro_.larghezza) +
               static_cast<std::size_t>(x);
    }
    void Scegliendo() {
        QImage vuota(1, 1, QImage::Format_RGB32);
        QPainter p(&vuota);
        OpzioniPittura3D opz = aspetto_.pittura;
        opz.svelto = true;
        DipingiSolidi(p, mostrate_, maglie_, Inquadra(), opz, &quadro_);
    }
    void Dipingi(QPainter& p) {
        QLinearGradient fondo(0, 0, 0, height());
        fondo.setColorAt(0.0, QColor(244, 247, 250));
        fondo.setColorAt(1.0, QColor(216, 223, 231));
        const bool bianco = aspetto_.pittura.modo == Modo3D::nascoste;
        p.fillRect(rect(), bianco ? QBrush(Qt::white) : QBrush(fondo));
        OpzioniPittura3D opz = aspetto_.pittura;
        opz.svelto = InMoto();
        DipingiSolidi(p, mostrate_, maglie_, Inquadra(), opz);
        DipingiCubo(p);
    }
    std::vector<std::pair<const FacciaCubo*, QPolygonF>> Facce() const {
        const Proiezione q = ProiezioneCamera(camera_);
        const QPointF centro(width() - kCubo, kCubo);
        std::vector<std::pair<const FacciaCubo*, QPolygonF>> v;
        for (const FacciaCubo& f : kFacce) {
            if (Scalare(f.normale, q.verso) < 0.02) continue;
            // The face's own right and up, as its label reads from outside.
            const Proiezione sua = ProiezioneCamera({f.azimut, f.elevazione, {}, 1.0});
            QPolygonF forma;
            for (const auto& [u, w] : {std::pair{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
                const Punto3 a = Avanti(Avanti(f.normale, u, sua.destra), w, sua.su);
                const auto s = q.Piana(a);
                forma << centro + QPointF(s[0] * kLatoCubo, -s[1] * kLatoCubo);
            }
            v.emplace_back(&f, forma);
        }
        return v;
    }
    void DipingiCubo(QPainter& p) const {
        p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        for (const auto& [faccia, forma] : Facce()) {
            p.setPen(QPen(QColor(110, 120, 135), 1.0));
            p.setBrush(QColor(250, 251, 253, 225));
            p.drawPolygon(forma);
            // The label lies in the face: its unit square onto the four corners.
            QTransform t;
            const QPolygonF quadro(
                {QPointF(0, 60), QPointF(60, 60), QPointF(60, 0), QPointF(0, 0)});
            if (!QTransform::quadToQuad(quadro, forma, t)) continue;
            p.save();
            p.setTransform(t, true);
            QFont carattere = p.font();
            carattere.setPixelSize(11);
            carattere.setBold(true);
            p.setFont(carattere);
            p.setPen(QColor(60, 70, 85));
            p.drawText(QRectF(0, 0, 60, 60), Qt::AlignCenter, QString::fromLatin1(faccia->nome));
            p.restore();
        }
    }

    QImage pronta_;
    bool svelta_ = false;
    Quadro quadro_;
};

}  // namespace

Superficie* FaiSuperficiePittura(QWidget* padre) { return new SuperficiePittura(padre); }

}  // namespace tk07::osserva3d
