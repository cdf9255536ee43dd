"""The two joints of the hand sheets, with the keys of the joint file."""

SLU = {
    "TraPri_Nome": "IPE500", "TraSec_Nome": "IPE270", "distAlaSecPiastra": 70,
    "distPiastraTraPri": 5, "distAliPriSec": 90, "BPiastra": [300, 280], "HPiastra": [468, 425],
    "SpPiastra": [15, 18], "AttNerv": [1, 1, 0], "SpNerv": [8, 10, 12], "H1Nerv": [65, 80, 468],
    "H2Nerv": [40, 3, 468], "BNerv": [140, 120, 84.9], "SmussoNerv": [0, 0, 21],
    "spSaldS1": 7, "spSaldS2": 8,
    "bulloni": [(-112, 432, 20), (-54, 432, 20), (52, 432, 20), (108, 432, 20), (-90, 350, 16),
                (90, 350, 16), (-90, 275, 16), (85, 265, 16), (-90, 190, 16), (90, 190, 16),
                (-105, 80, 20), (112, 80, 20)],
    "acciaio_Nome": "S 275 (FE 430)", "vite_Nome": "4.6", "Esposizione": 1, "TipoVer": 1,
    "sestetti": [(900, 7500, 180, 60, 900, 2500, 0, "Permanenti e variabili"),
                 (-650, 3800, -120, -35, 3500, 128000, 0, "Vento"),
                 (2400, -15200, 260, 45, -34000, 410000, 0, "Sisma")],
}

TA = {
    "TraPri_Nome": "HEA450", "TraSec_Nome": "IPE240", "distAlaSecPiastra": 70,
    "distPiastraTraPri": 4, "distAliPriSec": 105, "BPiastra": [200, 180], "HPiastra": [398, 370],
    "SpPiastra": [20, 16], "AttNerv": [1, 1, 0], "SpNerv": [10, 8, 14], "H1Nerv": [60, 55, 398],
    "H2Nerv": [60, 30, 398], "BNerv": [110, 130, 128.25], "SmussoNerv": [0, 0, 27],
    "spSaldS1": 6, "spSaldS2": 10,
    "bulloni": [(-55, 351, 20), (52, 351, 20), (-58, 275, 16), (58, 275, 16), (58, 205, 16),
                (-58, 140, 16), (58, 140, 16), (-55, 45, 20), (55, 45, 20)],
    "acciaio_Nome": "S 235 (FE 360)", "vite_Nome": "5.6", "Esposizione": 0, "TipoVer": 0,
    "sestetti": [(700, 5200, 140, 50, 700, 1800, 0, "Carichi principali"),
                 (-900, 2600, -90, -30, 2600, 96000, 1, "Carichi principali e vento"),
                 (1500, -11200, 210, 55, -19000, 310000, 1, "Carichi principali e urto")],
}
