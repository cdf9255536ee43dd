// The OpenCASCADE viewer in a window of its own: needs X and OpenGL.

#include <QImage>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>

#include "osserva3d/superficie.h"
#include "scene3d/terna.h"

// Behind the toolkit's headers: what X defines gets in their way.
#include <AIS_InteractiveContext.hxx>
#include <AIS_Shape.hxx>
#include <AIS_TextLabel.hxx>
#include <AIS_ViewCube.hxx>
#include <Aspect_DisplayConnection.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <Graphic3d_ClipPlane.hxx>
#include <Image_AlienPixMap.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <OpenGl_GraphicDriver.hxx>
#include <Prs3d_LineAspect.hxx>
#include <SelectMgr_EntityOwner.hxx>
#include <StdSelect_BRepOwner.hxx>
#include <V3d.hxx>
#include <V3d_AmbientLight.hxx>
#include <V3d_DirectionalLight.hxx>
#include <V3d_View.hxx>
#include <V3d_Viewer.hxx>
#include <Xw_Window.hxx>

namespace tk07::osserva3d {

namespace {

gp_Pnt InGp(const Punto3& p) { return {p[0], p[1], p[2]}; }

Quantity_Color Colore(const QColor& c) {
    return {c.redF(), c.greenF(), c.blueF(), Quantity_TOC_sRGB};
}

class SuperficieGl final : public Superficie {
  public:
    SuperficieGl(QWidget* padre, const Handle(OpenGl_GraphicDriver) & motore)
        : Superficie(padre), viewer_(new V3d_Viewer(motore)) {
        // The view draws straight onto the window; the toolkit keeps its hands off.
        setAttribute(Qt::WA_DontCreateNativeAncestors);
        setAttribute(Qt::WA_NativeWindow);
        setAttribute(Qt::WA_PaintOnScreen);
        setAttribute(Qt::WA_NoSystemBackground);
        FaiLuci();
        contesto_ = new AIS_InteractiveContext(viewer_);
        vista_ = viewer_->CreateView();
        vista_->SetImmediateUpdate(Standard_False);
        vista_->ChangeRenderingParams().NbMsaaSamples = 4;
        vista_->Camera()->SetProjectionType(Graphic3d_Camera::Projection_Orthographic);
        for (const auto stile : {Prs3d_TypeOfHighlight_Selected, Prs3d_TypeOfHighlight_Dynamic}) {
            contesto_->HighlightStyle(stile)->SetColor(Colore(QColor(255, 0, 200)));
        }
        FaiCubo();
    }
    ~SuperficieGl() override {
        contesto_->RemoveAll(Standard_False);
        vista_->Remove();
    }

    QPaintEngine* paintEngine() const override { return nullptr; }

    QImage Immagine() override {
        Apri();
        Image_AlienPixMap mappa;
        const qreal s = devicePixelRatioF();
        const int l = static_cast<int>(width() * s), a = static_cast<int>(height() * s);
        if (vista_->Window().IsNull() || !vista_->ToPixMap(mappa, l, a)) return {};
        QImage im(static_cast<int>(mappa.Width()), static_cast<int>(mappa.Height()),
                  QImage::Format_RGB32);
        for (int y = 0; y < im.height(); ++y) {
            for (int x = 0; x < im.width(); ++x) {
                const Quantity_ColorRGBA c = mappa.PixelColor(x, y);
                double r = 0, g = 0, b = 0;
                c.GetRGB().Values(r, g, b, Quantity_TOC_sRGB);
                im.setPixel(x, y, QColor::fromRgbF(float(r), float(g), float(b)).rgb());
            }
        }
        return im;
    }
    int ParteSotto(const QPointF& dove) override {
        Tocca(dove);
        const Handle(AIS_InteractiveObject) preso =
            contesto_->HasDetected() ? contesto_->DetectedInteractive() : nullptr;
        contesto_->ClearDetected();
        for (std::size_t i = 0; i < forme_.size(); ++i) {
            if (!preso.IsNull() && preso == forme_[i]) return static_cast<int>(i);
        }
        return -1;
    }
    std::optional<Punto3> PuntoSotto(const QPointF& dove) override {
        Tocca(dove);
        if (contesto_->MainSelector()->NbPicked() == 0) return std::nullopt;
        const gp_Pnt p = contesto_->MainSelector()->PickedPoint(1);
        contesto_->ClearDetected();
        return Punto3{p.X(), p.Y(), p.Z()};
    }

  protected:
    void PartiCambiate() override {
        // The same parts in other places keep their objects.
        if (forme_.size() != mostrate_.size() ||
            !std::equal(forme_.begin(), forme_.end(), parti_.begin(),
                        [](const auto& f, const Parte& p) { return f->Shape().IsSame(p.forma); })) {
            for (const auto& f : forme_) contesto_->Remove(f, Standard_False);
            forme_.clear();
            for (const Parte& p : parti_) forme_.push_back(new AIS_Shape(p.forma));
        }
        for (std::size_t i = 0; i < forme_.size(); ++i) {
            const Punto3 via = SpostamentoEsploso(parti_[i].dati, aspetto_.esploso);
            gp_Trsf t;
            t.SetTranslation(gp_Vec(via[0], via[1], via[2]));
            contesto_->SetLocation(forme_[i], TopLoc_Location(t));
        }
        AspettoCambiato();
    }
    void AspettoCambiato() override {
        const OpzioniPittura3D& opz = aspetto_.pittura;
        const bool linee = opz.modo == Modo3D::nascoste;
        vista_->SetBgGradientColors(linee ? Quantity_NOC_WHITE : Colore(QColor(244, 247, 250)),
                                    linee ? Quantity_NOC_WHITE : Colore(QColor(216, 223, 231)),
                                    Aspect_GFM_VER);
        for (std::size_t i = 0; i < forme_.size(); ++i) {
            const Handle(AIS_Shape)& f = forme_[i];
            if (!Visibile(i)) {
                contesto_->Erase(f, Standard_False);
                continue;
            }
            const DatiParte& d = parti_[i].dati;
            const bool scelta = static_cast<int>(i) == opz.scelta;
            const QColor c = ColoreParte(d, scelta);
            QColor spigolo(45, 48, 55);
            if (linee) {
                spigolo = c;
                spigolo.setHsv(c.hue(), std::max(c.saturation(), 170), std::min(c.value(), 165));
            }
            const Handle(Prs3d_Drawer) modi = f->Attributes();
            modi->SetFaceBoundaryDraw(opz.modo != Modo3D::ombreggiato);
            modi->SetFaceBoundaryAspect(
                new Prs3d_LineAspect(Colore(spigolo), Aspect_TOL_SOLID, linee ? 1.6 : 1.2));
            modi->SetupOwnShadingAspect();
            Graphic3d_MaterialAspect pasta(Graphic3d_NameOfMaterial_DEFAULT);
            pasta.SetSpecularColor(Quantity_NOC_BLACK);
            modi->ShadingAspect()->SetMaterial(pasta);
            modi->ShadingAspect()->SetColor(linee && !scelta ? Colore(Qt::white) : Colore(c));
            modi->ShadingAspect()->Aspect()->SetShadingModel(linee ? Graphic3d_TOSM_UNLIT
                                                                   : Graphic3d_TOSM_FRAGMENT);
            const bool velata = d.tipo == TipoParte::trave && !linee;
            modi->ShadingAspect()->SetTransparency(velata ? std::min(opz.trasparenzaTravi, 0.95)
                                                          : 0.0);
            contesto_->Display(f, AIS_Shaded, 0, Standard_False);
            contesto_->Redisplay(f, Standard_False);
        }
        Sezione();
    }
    void CameraCambiata() override { MuoviCamera(); }

    bool PresoDalCubo(const QPointF& dove) override {
        Tocca(dove);
        const auto preso = Handle(AIS_ViewCubeOwner)::DownCast(contesto_->DetectedOwner());
        contesto_->ClearDetected();
        if (preso.IsNull()) return false;
        const gp_Dir v = V3d::GetProjAxis(preso->MainOrientation());
        const double gradi = 180.0 / 3.14159265358979;
        const bool verticale = std::hypot(v.X(), v.Y()) < 1e-6;
        Orienta(verticale ? -90.0 : std::atan2(v.Y(), v.X()) * gradi,
                std::asin(std::clamp(v.Z(), -1.0, 1.0)) * gradi);
        return true;
    }
    void showEvent(QShowEvent*) override { Apri(); }
    void paintEvent(QPaintEvent*) override {
        Apri();
        if (vista_->Window().IsNull()) return;
        // A view first shown in a window that was small stays small otherwise.
        Standard_Integer l = 0, a = 0;
        vista_->Window()->Size(l, a);
        const qreal s = devicePixelRatioF();
        if (l != static_cast<int>(width() * s) || a != static_cast<int>(height() * s) || mutata_) {
            mutata_ = false;
            vista_->MustBeResized();
            MuoviCamera();
        }
        MostraMisura();
        vista_->InvalidateImmediate();
        vista_->Redraw();
    }
    void resizeEvent(QResizeEvent* e) override {
        mutata_ = true;
        Superficie::resizeEvent(e);
    }

  private:
    // The window's handle exists from the first showing on.
    void Apri() {
        if (!vista_->Window().IsNull() || !isVisible()) return;
        const Handle(Xw_Window) finestra = new Xw_Window(viewer_->Driver()->GetDisplayConnection(),
                                                         static_cast<Aspect_Drawable>(winId()));
        vista_->SetWindow(finestra);
        if (!finestra->IsMapped()) finestra->Map();
        vista_->MustBeResized();
        MuoviCamera();
    }
    void Tocca(const QPointF& dove) {
        const qreal s = devicePixelRatioF();
        contesto_->MoveTo(static_cast<int>(dove.x() * s), static_cast<int>(dove.y() * s), vista_,
                          Standard_False);
    }
    void MuoviCamera() {
        if (vista_->Window().IsNull() || height() == 0) return;
        constexpr double kLontano = 1e4;  // mm from the middle; no effect on a parallel projection
        const Proiezione p = ProiezioneCamera(camera_);
        const Handle(Graphic3d_Camera) c = vista_->Camera();
        c->SetUp(gp_Dir(p.su[0], p.su[1], p.su[2]));
        c->SetEyeAndCenter(InGp(Avanti(camera_.centro, kLontano, p.verso)), InGp(camera_.centro));
        c->SetAspect(static_cast<double>(width()) / height());
        // The camera's scale is the smaller side of the view.
        c->SetScale(std::min(width(), height()) / camera_.perMm);
        vista_->AutoZFit();
    }
    void Sezione() {
        const PianoSezione& s = aspetto_.sezione;
        if (!piano_.IsNull()) vista_->RemoveClipPlane(piano_);
        piano_.Nullify();
        if (s.asse < 0) return;
        gp_XYZ n(0, 0, 0), o(0, 0, 0);
        n.SetCoord(s.asse + 1, s.lato == LatoTenuto::sotto ? -1.0 : 1.0);
        o.SetCoord(s.asse + 1, s.quota);
        piano_ = new Graphic3d_ClipPlane(gp_Pln(gp_Pnt(o), gp_Dir(n)));
        piano_->SetCapping(Standard_True);
        piano_->SetUseObjectMaterial(Standard_True);
        vista_->AddClipPlane(piano_);
    }
    // As the painted surface has it: from the eye, a little above and to the left.
    void FaiLuci() {
        const Handle(V3d_AmbientLight) diffusa = new V3d_AmbientLight(Quantity_NOC_WHITE);
        diffusa->SetIntensity(1.8F);
        const Handle(V3d_DirectionalLight) lampada =
            new V3d_DirectionalLight(gp_Dir(0.2, -0.3, -1.0), Quantity_NOC_WHITE);
        lampada->SetHeadlight(Standard_True);
        lampada->SetIntensity(0.7F);
        for (const Handle(V3d_Light) & l :
             {Handle(V3d_Light)(diffusa), Handle(V3d_Light)(lampada)}) {
            viewer_->AddLight(l);
            viewer_->SetLightOn(l);
        }
    }
    void FaiCubo() {
        cubo_ = new AIS_ViewCube();
        cubo_->SetSize(52);
        cubo_->SetBoxFacetExtension(7);
        cubo_->SetFontHeight(11);
        cubo_->SetBoxColor(Colore(QColor(250, 251, 253)));
        cubo_->SetTextColor(Colore(QColor(60, 70, 85)));
        cubo_->SetFont("DejaVu Sans");
        cubo_->SetDrawAxes(Standard_False);
        const std::pair<V3d_TypeOfOrientation, const char*> nomi[] = {
            {V3d_Xpos, "DESTRA"}, {V3d_Xneg, "SINISTRA"}, {V3d_Yneg, "FRONTE"},
            {V3d_Ypos, "RETRO"},  {V3d_Zpos, "ALTO"},     {V3d_Zneg, "BASSO"}};
        for (const auto& [lato, nome] : nomi) cubo_->SetBoxSideLabel(lato, nome);
        cubo_->SetTransformPersistence(new Graphic3d_TransformPers(
            Graphic3d_TMF_TriedronPers, Aspect_TOTP_RIGHT_UPPER, Graphic3d_Vec2i(78, 78)));
        contesto_->Display(cubo_, Standard_False);
    }
    void MostraMisura() {
        for (const auto& x : segni_) contesto_->Remove(x, Standard_False);
        segni_.clear();
        if (!HaMisura()) return;
        const Quantity_Color tinta = Colore(QColor(200, 0, 120));
        const auto davanti = [&](const Handle(AIS_InteractiveObject) & x) {
            x->SetZLayer(Graphic3d_ZLayerId_Topmost);
            contesto_->Display(x, Standard_False);
            contesto_->Deactivate(x);
            segni_.push_back(x);
        };
        const auto scritta = [&](const Punto3& dove, const QString& testo) {
            Handle(AIS_TextLabel) t = new AIS_TextLabel();
            t->SetText(TCollection_ExtendedString(testo.toUtf8().constData(), Standard_True));
            t->SetPosition(InGp(dove));
            t->SetColor(tinta);
            t->SetFont("DejaVu Sans");
            t->SetHeight(14);
            t->SetHJustification(Graphic3d_HTA_CENTER);
            t->SetVJustification(Graphic3d_VTA_CENTER);
            t->SetDisplayType(Aspect_TODT_SUBTITLE);
            t->SetColorSubTitle(Quantity_NOC_WHITE);
            davanti(t);
        };
        if (!secondo_) return scritta(*primo_, QStringLiteral("+"));
        if (InGp(*primo_).Distance(InGp(*secondo_)) > 1e-6) {
            Handle(AIS_Shape) linea =
                new AIS_Shape(BRepBuilderAPI_MakeEdge(InGp(*primo_), InGp(*secondo_)).Shape());
            linea->SetColor(tinta);
            linea->SetWidth(2.0);
            davanti(linea);
        }
        scritta(Avanti(*primo_, 0.5, Avanti(*secondo_, -1.0, *primo_)), TestoMisura());
    }

    Handle(V3d_Viewer) viewer_;
    Handle(AIS_InteractiveContext) contesto_;
    Handle(V3d_View) vista_;
    std::vector<Handle(AIS_Shape)> forme_;
    std::vector<Handle(AIS_InteractiveObject)> segni_;
    Handle(AIS_ViewCube) cubo_;
    Handle(Graphic3d_ClipPlane) piano_;
    bool mutata_ = true;
};

}  // namespace

Superficie* FaiSuperficieGl(QWidget* padre) {
    Message::DefaultMessenger()->ChangePrinters().Clear();  // it would speak on standard output
    try {
        const Handle(Aspect_DisplayConnection) schermo = new Aspect_DisplayConnection();
        const Handle(OpenGl_GraphicDriver) motore = new OpenGl_GraphicDriver(schermo);
        // Whether a window can be drawn on shows with a window only: one that is never mapped.
        const Handle(V3d_Viewer) viewer = new V3d_Viewer(motore);
        const Handle(V3d_View) vista = viewer->CreateView();
        const Handle(Xw_Window) finestra = new Xw_Window(schermo, "prova", 0, 0, 16, 16);
        finestra->SetVirtual(Standard_True);
        vista->SetWindow(finestra);
        vista->Remove();
        return new SuperficieGl(padre, motore);
    } catch (const Standard_Failure&) {
        return nullptr;
    }
}

}  // namespace tk07::osserva3d
