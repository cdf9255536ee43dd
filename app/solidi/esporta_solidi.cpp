#include "solidi/esporta_solidi.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Builder.hxx>
#include <IFSelect_ReturnStatus.hxx>
#include <Interface_Static.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_ProgressRange.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <RWGltf_CafWriter.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <Standard_Failure.hxx>
#include <StepData_StepModel.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StlAPI_Writer.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/file_testo.h"
#include "base/piattaforma.h"
#include "base/scrittura.h"
#include "base/testo.h"

namespace tk07 {

namespace {

namespace fs = std::filesystem;

// The toolkit tells of its doings on standard output, which is the user's.
class Silenzio {
  public:
    Silenzio() : prima_(Message::DefaultMessenger()->Printers()) {
        Message::DefaultMessenger()->ChangePrinters().Clear();
    }
    ~Silenzio() { Message::DefaultMessenger()->ChangePrinters() = prima_; }
    Silenzio(const Silenzio&) = delete;
    Silenzio& operator=(const Silenzio&) = delete;

  private:
    Message_SequenceOfPrinters prima_;
};

Quantity_ColorRGBA Colore(std::int32_t argb) {
    const auto c = static_cast<std::uint32_t>(argb);
    const auto parte = [c](int bit) { return static_cast<double>((c >> bit) & 0xFFU) / 255.0; };
    return {Quantity_Color(parte(16), parte(8), parte(0), Quantity_TOC_sRGB), 1.0F};
}

TCollection_ExtendedString Esteso(const std::string& utf8) { return {utf8.c_str(), Standard_True}; }

enum class Nomi { utf8, step };

// STEP files hold ASCII: other characters stand as \X2\....\X0\. The writer doubles every
// backslash that it is given, so those of the directives travel as this character, which no name
// has, and come back when the file is written.
constexpr char kBarra = '\x01';
constexpr const char *kInizio = "\x01X2\x01", *kFine = "\x01X0\x01";

std::string NomeStep(const std::string& testo) {
    static constexpr const char* kCifre = "0123456789ABCDEF";
    std::string r;
    bool fuori = false;
    const auto unita = [&r](unsigned v) {
        for (int bit = 12; bit >= 0; bit -= 4) r += kCifre[(v >> bit) & 15U];
    };
    for (std::size_t i = 0; i < testo.size();) {
        const auto c = static_cast<unsigned char>(testo[i]);
        const std::size_t n = c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
        unsigned v = n == 1 ? c : c & (0xFFU >> (n + 1));
        for (std::size_t k = 1; k < n && i + k < testo.size(); ++k) {
            v = v << 6 | (static_cast<unsigned char>(testo[i + k]) & 0x3FU);
        }
        i += n;
        const bool semplice = v >= 0x20 && v < 0x7F;
        if (semplice == fuori) r += semplice ? kFine : kInizio;
        fuori = !semplice;
        if (semplice) {
            r += static_cast<char>(v);
        } else if (v < 0x10000) {
            unita(v);
        } else {
            unita(0xD800 + ((v - 0x10000) >> 10));
            unita(0xDC00 + ((v - 0x10000) & 0x3FFU));
        }
    }
    return fuori ? r + kFine : r;
}

// An assembly with one component a part.
Handle(TDocStd_Document)
    Documento(const std::vector<Parte>& parti, const std::string& titolo, Nomi nomi) {
    const auto nome = [nomi](const std::string& t) {
        return Esteso(nomi == Nomi::step ? NomeStep(t) : t);
    };
    Handle(TDocStd_Document) doc = new TDocStd_Document("BinXCAF");
    const Handle(XCAFDoc_ShapeTool) forme = XCAFDoc_DocumentTool::ShapeTool(doc->Main());
    const Handle(XCAFDoc_ColorTool) colori = XCAFDoc_DocumentTool::ColorTool(doc->Main());
    const TDF_Label insieme = forme->NewShape();
    TDataStd_Name::Set(insieme, nome(titolo));
    for (const Parte& p : parti) {
        const TDF_Label pezzo = forme->AddShape(p.forma, Standard_False);
        TDataStd_Name::Set(pezzo, nome(p.dati.nome));
        colori->SetColor(pezzo, Colore(p.dati.colore), XCAFDoc_ColorSurf);
        const TDF_Label posto = forme->AddComponent(insieme, pezzo, TopLoc_Location());
        TDataStd_Name::Set(posto, nome(p.dati.nome));
    }
    forme->UpdateAssemblies();
    return doc;
}

bool Step(const std::vector<Parte>& parti, const std::string& titolo, const std::string& file) {
    STEPCAFControl_Controller::Init();
    Interface_Static::SetCVal("write.step.schema", "AP214IS");
    Interface_Static::SetCVal("write.step.unit", "MM");
    STEPCAFControl_Writer scrittore;
    scrittore.SetColorMode(Standard_True);
    scrittore.SetNameMode(Standard_True);
    if (!scrittore.Transfer(Documento(parti, titolo, Nomi::step), STEPControl_AsIs)) return false;
    // The toolkit counts the places of all assemblies since the program's start; each file counts
    // its own.
    const Handle(StepData_StepModel) modello = scrittore.ChangeWriter().Model();
    int posti = 0;
    for (int i = 1; i <= modello->NbEntities(); ++i) {
        const auto posto =
            Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(modello->Entity(i));
        if (!posto.IsNull()) posto->SetId(new TCollection_HAsciiString(++posti));
    }
    APIHeaderSection_MakeHeader testata(scrittore.ChangeWriter().Model());
    const auto testo = [](const std::string& t) {
        return new TCollection_HAsciiString(NomeStep(t).c_str());
    };
    testata.SetName(testo(titolo));
    // The same joint gives the same bytes, whenever it is written.
    testata.SetTimeStamp(new TCollection_HAsciiString("2000-01-01T00:00:00"));
    testata.SetAuthorValue(1, testo(""));  // the toolkit names itself there
    testata.SetOrganizationValue(1, testo(""));
    testata.SetOriginatingSystem(testo(kTitoloProgramma));
    return scrittore.Write(file.c_str()) == IFSelect_RetDone;
}

bool Glb(const std::vector<Parte>& parti, const std::string& titolo, const std::string& file) {
    Reticola(parti);
    RWGltf_CafWriter scrittore(file.c_str(), Standard_True);
    scrittore.ChangeCoordinateSystemConverter().SetInputLengthUnit(0.001);
    scrittore.ChangeCoordinateSystemConverter().SetInputCoordinateSystem(
        RWMesh_CoordinateSystem_Zup);
    return scrittore.Perform(Documento(parti, titolo, Nomi::utf8),
                             TColStd_IndexedDataMapOfStringString(), Message_ProgressRange());
}

bool Stl(const std::vector<Parte>& parti, const std::string&, const std::string& file) {
    Reticola(parti);
    TopoDS_Compound insieme;
    BRep_Builder costruttore;
    costruttore.MakeCompound(insieme);
    for (const Parte& p : parti) costruttore.Add(insieme, p.forma);
    StlAPI_Writer scrittore;
    scrittore.ASCIIMode() = Standard_False;
    return scrittore.Write(insieme, file.c_str());
}

struct Formato {
    const char* estensione;
    bool (*scrivi)(const std::vector<Parte>&, const std::string& titolo, const std::string& file);
};
constexpr std::array<Formato, 4> kFormati = {
    {{".step", Step}, {".stp", Step}, {".glb", Glb}, {".stl", Stl}}};

const Formato* FormatoDi(const std::string& file) {
    const std::string e = Minuscolo(fs::path(file).extension().string());
    for (const Formato& f : kFormati) {
        if (e == f.estensione) return &f;
    }
    return nullptr;
}

}  // namespace

void Reticola(const std::vector<Parte>& parti) {
    for (const Parte& p : parti) {
        if (!p.forma.IsNull())
            BRepMesh_IncrementalMesh(p.forma, kFrecciaMaglia, Standard_False, kGiroMaglia);
    }
}

bool FormatoSolidi(const std::string& file) { return FormatoDi(file) != nullptr; }

bool EsportaSolidi(const std::vector<Parte>& parti, const std::string& titolo,
                   const std::string& file, std::string& errore) {
    const auto guasto = [&](const std::string& cosa) {
        errore = PercorsoMostrato(file) + ": " + cosa;
        return false;
    };
    const Formato* formato = FormatoDi(file);
    if (formato == nullptr) return guasto("formato non riconosciuto (step, glb, stl)");
    if (parti.empty()) return guasto("nessun solido da scrivere");
    // The toolkit writes where nobody else does; what it wrote goes to its place like all files.
    const DirettorioPrivato banco;
    if (banco.Percorso().empty()) {
        return guasto("file non scritto: direttorio provvisorio: " +
                      MessaggioSistema(banco.Errore()));
    }
    const std::string qui = banco.Percorso() + "/solidi" + formato->estensione;
    bool fatto = false;
    std::string perche;
    try {
        const Silenzio silenzio;
        fatto = formato->scrivi(parti, titolo, qui);
    } catch (const Standard_Failure& f) {
        perche = std::string(": ") + f.GetMessageString();
    }
    std::ifstream lettura(qui, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(lettura)), {});
    if (!fatto || bytes.empty()) return guasto("file non scritto" + perche);
    if (formato->scrivi == Step) std::replace(bytes.begin(), bytes.end(), kBarra, '\\');
    const std::string detto = ScriviFile(file, bytes, Codifica::utf8);
    return detto.empty() || guasto("file non scritto: " + detto);
}

}  // namespace tk07
