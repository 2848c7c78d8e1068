-- The empty inventory database: one operator, one inventory year, at most twelve monthly surveys.
--
-- The build makes the template mr.dbt from this file, and every new inventory is a copy of that template.
-- Every table and column of the system is declared here and nowhere else.
--
-- Texts compare without regard to case. Measured quantities are doubles. No column has a default: what
-- nobody has filled in is Null, yes/no columns included. Widths are held by the screens, not by the file,
-- since a file from elsewhere may hold longer texts. Keys are given out by the program.
--
-- QC_XREF is missing on purpose: the program makes it when it first opens a file, as a mark that the file
-- has been repaired.

PRAGMA page_size      = 4096;
PRAGMA application_id = 1296388684;  -- 'MERL'
PRAGMA user_version   = 2017;
PRAGMA foreign_keys   = ON;

-- ----------------------------------------------------------------------------------------
-- Configuration and operator
-- ----------------------------------------------------------------------------------------
-- SYS_CONFIG holds one row, made at the first open: inventory year, highest survey month, check level.

CREATE TABLE SYS_CONFIG (
    sys_yr       INTEGER,
    SYS_MAX_MO   INTEGER,  -- 1 to 12
    ERR_CHK_LVL  INTEGER
);

CREATE TABLE CO_COMPANY (
    RIMA_CO_NUM     TEXT COLLATE NOCASE PRIMARY KEY,  -- operator number, UserID in the QC tables
    CO_NAME         TEXT COLLATE NOCASE,
    ADDR1           TEXT COLLATE NOCASE,
    ADDR2           TEXT COLLATE NOCASE,
    City            TEXT COLLATE NOCASE,
    State           TEXT COLLATE NOCASE,
    Zip             TEXT COLLATE NOCASE,
    Contact         TEXT COLLATE NOCASE,
    Phone           TEXT COLLATE NOCASE,              -- as masked: (###) ### - #### ext ####
    Fax             TEXT COLLATE NOCASE,              -- as masked: (###) ### - ####
    Email           TEXT COLLATE NOCASE,
    ProgramVersion  TEXT COLLATE NOCASE
);

-- ----------------------------------------------------------------------------------------
-- Structures
-- ----------------------------------------------------------------------------------------
-- A structure has one description row and one activity row for each survey month. RIMA_CO_NUM
-- names its operator; no relation is declared there, nor between the activity rows of structures and those of
-- equipment, which meet by month and year. Sales gas composition in percent; status A active, I inactive.

CREATE TABLE PD_PLATFORM_DESC (
    PD_ID_AK                  INTEGER PRIMARY KEY,
    RIMA_CO_NUM               TEXT COLLATE NOCASE,
    CMPLX_ID_NUM              TEXT COLLATE NOCASE,  -- complex, up to 7 characters on the screens
    STRUCT_NUM                TEXT COLLATE NOCASE,  -- structure within the complex, up to 2
    Area                      TEXT COLLATE NOCASE,
    Block                     TEXT COLLATE NOCASE,
    Name                      TEXT COLLATE NOCASE,
    LONGITUDE                 DOUBLE,
    LATITUDE                  DOUBLE,
    DIST_TO_SHORE             DOUBLE,
    WATER_DEPTH_FT            DOUBLE,
    LEASE_NUM                 TEXT COLLATE NOCASE,
    SalesGasC1Content         DOUBLE,
    SalesGasC2Content         DOUBLE,
    SalesGasC3Content         DOUBLE,
    SalesGasiC4Content        DOUBLE,
    SalesGasnC4Content        DOUBLE,
    SalesGasiC5Content        DOUBLE,
    SalesGasnC5Content        DOUBLE,
    SalesGasC6Content         DOUBLE,
    SalesGasC7Content         DOUBLE,
    SalesGasC8PlusContent     DOUBLE,
    SalesGasCO2Content        DOUBLE,
    SalesGasH2SContent        DOUBLE,
    SalesGasN2Content         DOUBLE,
    SalesGasO2Content         DOUBLE,
    SALES_GAS_TOTAL           DOUBLE,
    MINOR_SOURCE_EXEMPT       TEXT COLLATE NOCASE,  -- Yes or No
    MINOR_SOURCE_EXEMPT_WHAT  TEXT COLLATE NOCASE,
    status                    TEXT COLLATE NOCASE,
    PD_QC_DT                  DATETIME
);

CREATE INDEX ix_PD_PLATFORM_DESC_CMPLX_STRUCT ON PD_PLATFORM_DESC (CMPLX_ID_NUM, STRUCT_NUM);

CREATE TABLE PA_PLATFORM_ACTV (
    SA_ID_AK          INTEGER PRIMARY KEY,
    PD_ID_AK          INTEGER,
    PA_MO             INTEGER,
    PA_YR             INTEGER,
    status            TEXT COLLATE NOCASE,  -- Null counts as active
    PROD_OIL          DOUBLE,               -- bbl
    PROD_NG           DOUBLE,               -- MMscf
    THRU_OIL          DOUBLE,
    THRU_NG           DOUBLE,
    TOT_FUEL_USE_NG   DOUBLE,               -- natural gas
    TOT_FUEL_USE_GAS  DOUBLE,               -- gasoline
    TOT_FUEL_USE_DIE  DOUBLE,               -- diesel
    COMNT_TXT         TEXT COLLATE NOCASE,
    PA_QC_DT          DATETIME,
    FOREIGN KEY (PD_ID_AK) REFERENCES PD_PLATFORM_DESC (PD_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE INDEX ix_PA_PLATFORM_ACTV_PD_YR_MO ON PA_PLATFORM_ACTV (PD_ID_AK, PA_YR, PA_MO);
CREATE INDEX ix_PA_PLATFORM_ACTV_YR_MO ON PA_PLATFORM_ACTV (PA_YR, PA_MO);

-- ----------------------------------------------------------------------------------------
-- Equipment
-- ----------------------------------------------------------------------------------------
-- A piece of equipment has a row in ED_EQUIP_DESC and in its type's ED_ table, and for each survey month a
-- row in EA_EQUIP_ACTV and in its type's EA_ table. An equipment ID is unique within structure and type only.

CREATE TABLE ED_EQUIP_DESC (
    ED_ID_AK           INTEGER PRIMARY KEY,
    PD_ID_AK           INTEGER,
    ED_EQUIP_TYP       TEXT COLLATE NOCASE,  -- three-letter type code
    ED_MERLU_EQUIP_ID  TEXT COLLATE NOCASE,  -- up to 8 characters on the screens
    ED_QC_DT           DATETIME,
    FOREIGN KEY (PD_ID_AK) REFERENCES PD_PLATFORM_DESC (PD_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE INDEX ix_ED_EQUIP_DESC_PD_TYP_ID ON ED_EQUIP_DESC (PD_ID_AK, ED_EQUIP_TYP, ED_MERLU_EQUIP_ID);

CREATE TABLE EA_EQUIP_ACTV (
    EA_ID_AK      INTEGER PRIMARY KEY,
    ED_ID_AK      INTEGER,
    EA_MO         INTEGER,
    EA_YR         INTEGER,
    EA_EQUIP_TYP  TEXT COLLATE NOCASE,  -- copy of ED_EQUIP_TYP
    EA_STATUS     TEXT COLLATE NOCASE,  -- A or I, Null until a sheet sets it
    EA_COMNT_TXT  TEXT COLLATE NOCASE,
    EA_QC_DT      DATETIME,
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE INDEX ix_EA_EQUIP_ACTV_ED_YR_MO ON EA_EQUIP_ACTV (ED_ID_AK, EA_YR, EA_MO);

-- ----------------------------------------------------------------------------------------
-- Equipment types
-- ----------------------------------------------------------------------------------------
-- Deleting an equipment row or a monthly row takes the type's row with it. Coded columns hold the short code of
-- the list item, unless the remark says that they hold its text. The blocks that several types share:
--   EXH_OUT_    exhaust or ventilation outlet
--   STK_        stack of a flare or vent
--   FLA_        local flare: combustion temperature, efficiency, feed rate
--   CTRL_TECH   installed control equipment, with its CONDENSER_ columns
--   OTH_CTRL_   other control device and its efficiencies
--   EMIS_DEST   VL vented locally, FL flared locally, VR vented remotely, FR flared remotely, RS routed to system
--   SENT_TO_ID  the remote vent or flare: VEN or FLA, then its equipment ID

-- AMI, amine unit. Gas concentrations in percent by volume, emitted quantities in percent.

CREATE TABLE ED_AMI (
    ED_ID_AK             INTEGER PRIMARY KEY,
    MODELINPUTS_FLG      BOOLEAN,              -- by model inputs, else by quantity emitted
    Conc_C3HC            DOUBLE,
    Conc_C4HC            DOUBLE,
    Conc_C5HC            DOUBLE,
    Conc_C6HC            DOUBLE,
    Conc_C7HC            DOUBLE,
    Conc_C8plus_HC       DOUBLE,
    CONC_O2              DOUBLE,
    CONC_CO2             DOUBLE,
    CONC_N2              DOUBLE,
    Conc_Ethane          DOUBLE,
    Conc_Methane         DOUBLE,
    Conc_NGH2S           DOUBLE,
    UNG_CONC_TOTAL       DOUBLE,               -- total of the twelve at the last QC run
    CONDENSER_PRES       DOUBLE,               -- psia
    CONDENSER_TEMP       DOUBLE,               -- °F
    CTRL_TECH            TEXT COLLATE NOCASE,  -- NONE, VR/C, SR, SRVC
    EXH_OUT_ANGLE        DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL     DOUBLE,               -- ft/s
    EXH_OUT_HGT          DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM   DOUBLE,               -- in
    EXH_OUT_TEMP         DOUBLE,               -- °F
    FLA_COMBUST_TEMP     DOUBLE,               -- °F
    FLA_EFFIC            DOUBLE,               -- percent
    FLA_FEED_RATE        DOUBLE,               -- scf/hr
    OTH_CTRL_DEVICE      BOOLEAN,
    OTH_CTRL_DESC        TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO    DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10  DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC   DOUBLE,               -- percent
    SRU_RECOVERY_EFFIC   DOUBLE,               -- percent
    Sour_Pres            DOUBLE,               -- psig
    Sour_Temp            DOUBLE,               -- °F
    Flash_Temp           DOUBLE,               -- °F
    Flash_Pres           DOUBLE,               -- psig
    NUM                  DOUBLE,               -- absorber trays
    Amine_Feed_Pres      DOUBLE,               -- psig
    Amine_Feed_Temp      DOUBLE,               -- °F
    Amine_Feed_FlowRate  DOUBLE,               -- gal/min
    Amine_Feed_AminePct  DOUBLE,               -- percent by weight
    Amine_Feed_H2SPct    DOUBLE,               -- percent by weight
    Amine_Feed_CO2Pct    DOUBLE,               -- percent by weight
    Disposition          TEXT COLLATE NOCASE,  -- flash gas: VL vented, FL flared, RS routed
    AMINE_TYP            TEXT COLLATE NOCASE,  -- the item's text
    FLASHTANK_FLG        BOOLEAN,
    EMIS_DEST            TEXT COLLATE NOCASE,  -- VL, FL, VR, FR, RS
    SENT_TO_ID           TEXT COLLATE NOCASE,  -- VEN or FLA and the equipment's ID
    Emis_H2S             DOUBLE,               -- Emis_*: no sheet writes them, the annual
    Emis_Methane         DOUBLE,               -- inventory checks read them
    Emis_Ethane          DOUBLE,
    Emis_C3HC            DOUBLE,
    Emis_C4HC            DOUBLE,
    Emis_C5HC            DOUBLE,
    Emis_C6HC            DOUBLE,
    Emis_C7HC            DOUBLE,
    Emis_C8plus_HC       DOUBLE,
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_AMI (
    EA_ID_AK         INTEGER PRIMARY KEY,
    OP_HR            DOUBLE,               -- hours of the month
    TOT_GAS_THRUPUT  DOUBLE,               -- MMscf
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- BOI, boiler, heater or burner. The _OIL columns serve diesel and waste oil, their twins the gas fuels.

CREATE TABLE ED_BOI (
    ED_ID_AK                INTEGER PRIMARY KEY,
    FUEL_TYP                TEXT COLLATE NOCASE,  -- NG, PG, WG, WO, D
    EMIS_CTRL               TEXT COLLATE NOCASE,  -- N, L, F
    MAX_RATED_HI_RATE       DOUBLE,               -- MMBtu/hr
    HEAT_INPUT_RATE         DOUBLE,               -- MMBtu/hr
    MAX_RATED_FUEL_USE      DOUBLE,               -- scf/hr
    FUEL_USE_RATE           DOUBLE,               -- scf/hr
    FUEL_HEAT_VAL           DOUBLE,               -- Btu/scf
    FUEL_H2S_CONTENT        DOUBLE,               -- ppmv
    MAX_RATED_FUEL_USE_OIL  DOUBLE,               -- lb/hr
    FUEL_HEAT_VAL_OIL       DOUBLE,               -- Btu/lb
    FUEL_H2S_CONTENT_OIL    DOUBLE,               -- sulfur, percent by mass
    EXH_OUT_ANGLE           DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL        DOUBLE,               -- ft/s
    EXH_OUT_HGT             DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM      DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP       DOUBLE,               -- °F
    OTH_CTRL_DEVICE         BOOLEAN,
    OTH_CTRL_DESC           TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO       DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX      DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10     DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX      DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC      DOUBLE,               -- percent
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_BOI (
    EA_ID_AK           INTEGER PRIMARY KEY,
    OP_HR              DOUBLE,               -- hours of the month
    TOT_FUEL_USE       DOUBLE,               -- Mscf
    FUEL_USE_RATE_OIL  DOUBLE,               -- lb/hr
    TOT_FUEL_USE_OIL   DOUBLE,               -- lb
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- DIE, diesel or gasoline engine.

CREATE TABLE ED_DIE (
    ED_ID_AK             INTEGER PRIMARY KEY,
    FUEL_TYP             TEXT COLLATE NOCASE,  -- D, G, W
    MAX_HP               DOUBLE,               -- hp
    OP_HP                DOUBLE,               -- hp
    MAX_RATED_FUEL_USE   DOUBLE,               -- Btu/hp-hr
    FUEL_USE_RATE        DOUBLE,               -- Btu/hp-hr
    FUEL_HEAT_VAL        DOUBLE,               -- Btu/lb
    FUEL_SULFUR_CONTENT  DOUBLE,               -- percent by mass
    EXH_OUT_ANGLE        DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL     DOUBLE,               -- ft/s
    EXH_OUT_HGT          DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM   DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP    DOUBLE,               -- °F
    OTH_CTRL_DEVICE      BOOLEAN,
    OTH_CTRL_DESC        TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO    DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10  DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC   DOUBLE,               -- percent
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_DIE (
    EA_ID_AK      INTEGER PRIMARY KEY,
    OP_HR         DOUBLE,               -- hours of the month
    TOT_FUEL_USE  DOUBLE,               -- gal
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- DRI, drilling equipment. Its form and controls go by the letters JAC.

CREATE TABLE ED_DRI (
    ED_ID_AK             INTEGER PRIMARY KEY,
    EXH_OUT_ANGLE        DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL     DOUBLE,               -- ft/s
    EXH_OUT_HGT          DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM   DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP    DOUBLE,               -- °F
    OTH_CTRL_DEVICE      BOOLEAN,
    OTH_CTRL_DESC        TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO    DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10  DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC   DOUBLE,               -- percent
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_DRI (
    EA_ID_AK            INTEGER PRIMARY KEY,
    OP_HR               DOUBLE,               -- hours of the month
    DIESEL_USE          DOUBLE,               -- gal
    GASOLINE_USE        DOUBLE,               -- gal
    NG_USE              DOUBLE,               -- Mscf
    DRILLING_EQUIPMENT  TEXT COLLATE NOCASE,  -- rig name
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- FLA, combustion flare.

CREATE TABLE ED_FLA (
    ED_ID_AK              INTEGER PRIMARY KEY,
    CONC_H2S              DOUBLE,               -- ppmv
    FLA_EFFIC             DOUBLE,               -- percent
    FLA_SMOKE_FLG         TEXT COLLATE NOCASE,  -- N, L, M, H
    CTRL_FLA_PILOT_FLG    BOOLEAN,              -- continuous pilot
    PILOT_FUEL_FEED_RATE  DOUBLE,               -- Mscf/day
    OTH_CTRL_DEVICE       BOOLEAN,
    OTH_CTRL_DESC         TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO     DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX    DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX    DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC    DOUBLE,               -- percent
    STK_ANGLE             DOUBLE,               -- degrees
    STK_EXIT_VEL          DOUBLE,               -- ft/s
    STK_INNER_DIAM        DOUBLE,               -- in
    STK_OUT_ELEV          DOUBLE,               -- ft above msl
    STK_EXIT_TEMP         DOUBLE,               -- °F
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_FLA (
    EA_ID_AK                  INTEGER PRIMARY KEY,
    OP_HR                     DOUBLE,               -- hours of the month
    VOL_FLARED                DOUBLE,               -- Mscf
    PILOT_INCLUDED_IN_VOLUME  TEXT COLLATE NOCASE,  -- Yes or No, as text
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- FUG, fugitives. The quantities count components. There is no monthly side and no EA_FUG.

CREATE TABLE ED_FUG (
    ED_ID_AK                        INTEGER PRIMARY KEY,
    FACIL_SIZE                      TEXT COLLATE NOCASE,  -- S, M, L
    STREAM_TYP                      TEXT COLLATE NOCASE,  -- LO, HO, OG, OW, GA, NG
    WGT_PER_VOC                     DOUBLE,               -- percent by weight
    EQUIP_ELEV                      DOUBLE,               -- ft above msl
    COUNT_TYPE                      TEXT COLLATE NOCASE,  -- the item's text
    IS_LDAR_IN_PLACE                TEXT COLLATE NOCASE,  -- Yes or No, as text
    NBR_MONTHS_BETWEEN_INSPECTIONS  DOUBLE,               -- months
    INSPECTION_METHOD               TEXT COLLATE NOCASE,  -- the item's text
    VALVES_QTY                      DOUBLE,
    PUMP_SEALS_QTY                  DOUBLE,
    Connectors_qty                  DOUBLE,
    Flanges_qty                     DOUBLE,
    Open_Ended_Lines_qty            DOUBLE,
    CENTCOMPWET_SEALS_QTY           DOUBLE,
    CENTCOMPDRY_SEALS_QTY           DOUBLE,
    RECIPCOMP_SEALS_QTY             DOUBLE,
    OTH_COMP_SEALS_QTY              DOUBLE,
    Diaphragms_qty                  DOUBLE,
    Drains_qty                      DOUBLE,
    Dump_Arms_qty                   DOUBLE,
    Hatches_qty                     DOUBLE,
    Instruments_qty                 DOUBLE,
    Meters_qty                      DOUBLE,
    PRES_RELIEF_VALVES_QTY          DOUBLE,
    POLISHED_RODS_QTY               DOUBLE,
    OTH_RELIEF_VALVES_QTY           DOUBLE,
    OTH_CTRL_DEVICE                 BOOLEAN,
    OTH_CTRL_DESC                   TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO               DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX              DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10             DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX              DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC              DOUBLE,               -- percent
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- GLY, glycol dehydrator.

CREATE TABLE ED_GLY (
    ED_ID_AK                INTEGER PRIMARY KEY,
    CONDENSER_PRES          DOUBLE,               -- psia
    CONDENSER_TEMP          DOUBLE,               -- °F
    CTRL_TECH               TEXT COLLATE NOCASE,  -- VR/C, NONE
    EXH_OUT_ANGLE           DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL        DOUBLE,               -- ft/s
    EXH_OUT_HGT             DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM      DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP       DOUBLE,               -- °F
    FLA_COMBUST_TEMP        DOUBLE,               -- °F
    FLA_EFFIC               DOUBLE,               -- percent
    FLA_FEED_RATE           DOUBLE,               -- scf/hr
    FLASH_TANK_PRES         DOUBLE,               -- psig
    FLASH_TANK_TEMP         DOUBLE,               -- °F
    EMIS_DEST               TEXT COLLATE NOCASE,  -- VL, FL, VR, FR, RS
    Disposition             TEXT COLLATE NOCASE,  -- flash gas: RS routed, VL vented, FL burned
    OTH_CTRL_DESC           TEXT COLLATE NOCASE,
    OTH_CTRL_DEVICE         BOOLEAN,
    OTH_CTRL_EFFIC_CO       DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX      DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC      DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10     DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX      DOUBLE,               -- percent
    STRIPPING_GAS           TEXT COLLATE NOCASE,  -- NO, DG, FG, NI
    STRIPPING_GAS_FLOWRATE  DOUBLE,               -- scf/min
    FLASH_TANK_FLG          BOOLEAN,
    SENT_TO_ID              TEXT COLLATE NOCASE,  -- VEN or FLA and the equipment's ID
    WET_GAS_PRES            DOUBLE,               -- psig
    WET_GAS_TEMP            DOUBLE,               -- °F
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_GLY (
    EA_ID_AK         INTEGER PRIMARY KEY,
    TOT_GAS_THRUPUT  DOUBLE,               -- MMscf
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- LOA, loading operation. A file without EA_LOA was made by an earlier version.

CREATE TABLE ED_LOA (
    ED_ID_AK            INTEGER PRIMARY KEY,
    CONDENSER_PRES      DOUBLE,               -- psia
    CONDENSER_TEMP      DOUBLE,               -- °F
    CTRL_TECH           TEXT COLLATE NOCASE,  -- VR/C, NONE
    EQUIP_ELEV          DOUBLE,               -- ft above msl
    EXH_OUT_ANGLE       DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL    DOUBLE,               -- ft/s
    EXH_OUT_HGT         DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM  DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP   DOUBLE,               -- °F
    FLA_COMBUST_TEMP    DOUBLE,               -- °F
    FLA_EFFIC           DOUBLE,               -- percent
    FLA_FEED_RATE       DOUBLE,               -- scf/hr
    EMIS_DEST           TEXT COLLATE NOCASE,  -- VL, FL, VR, FR
    OTH_CTRL_DESC       TEXT COLLATE NOCASE,
    OTH_CTRL_DEVICE     BOOLEAN,
    OTH_CTRL_EFFIC_VOC  DOUBLE,               -- percent
    REID_VP             DOUBLE,               -- psia
    TANK_PAINT_COLOR    TEXT COLLATE NOCASE,  -- AS, AD, GL, GM, RP, WN
    TANK_PAINT_COND     TEXT COLLATE NOCASE,  -- G, P
    TANK_VAPWGT_PVOC    DOUBLE,               -- percent by weight
    TANK_VOC_MOLEWGT    DOUBLE,               -- lb/lb-mol
    SENT_TO_ID          TEXT COLLATE NOCASE,  -- VEN or FLA and the equipment's ID
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_LOA (
    EA_ID_AK            INTEGER PRIMARY KEY,
    VOL_LOADED          DOUBLE,               -- bbl
    TANK_BULK_LIQ_TEMP  DOUBLE,               -- °F
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- LOS, losses from flashing. US_ is upstream of the vessel, DS_ the vessel itself.

CREATE TABLE ED_LOS (
    ED_ID_AK            INTEGER PRIMARY KEY,
    API_SPGRAV          DOUBLE,               -- °API
    VESSEL_TYP          TEXT COLLATE NOCASE,  -- the item's text
    EMIS_DEST           TEXT COLLATE NOCASE,  -- VL, FL, VR, FR, RS
    SENT_TO_ID          TEXT COLLATE NOCASE,  -- VEN or FLA and the equipment's ID
    EXH_OUT_ANGLE       DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL    DOUBLE,               -- ft/s
    EXH_OUT_HGT         DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM  DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP   DOUBLE,               -- °F
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_LOS (
    EA_ID_AK     INTEGER PRIMARY KEY,
    US_OP_PRES   DOUBLE,               -- psig
    US_OP_TEMP   DOUBLE,               -- °F
    DS_OP_PRES   DOUBLE,               -- psig
    DS_OP_TEMP   DOUBLE,               -- °F
    THRUPUT      DOUBLE,               -- bbl
    SCF_PER_BBL  DOUBLE,               -- scf of flash per bbl of oil
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- MUD, mud degassing.

CREATE TABLE ED_MUD (
    ED_ID_AK  INTEGER PRIMARY KEY,
    Mud_Typ   TEXT COLLATE NOCASE,  -- the item's text
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_MUD (
    EA_ID_AK     INTEGER PRIMARY KEY,
    DAYS_PER_MO  DOUBLE,               -- days of drilling with mud
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- NGE, natural gas engine.

CREATE TABLE ED_NGE (
    ED_ID_AK             INTEGER PRIMARY KEY,
    MFG                  TEXT COLLATE NOCASE,
    model                TEXT COLLATE NOCASE,
    ENGINE_STROKE_CYCLE  TEXT COLLATE NOCASE,  -- 2, 4
    ENGINE_BURN_TYP      TEXT COLLATE NOCASE,  -- L, C, R
    MAX_HP               DOUBLE,               -- hp
    OP_HP                DOUBLE,               -- hp
    MAX_RATED_FUEL_USE   DOUBLE,               -- Btu/hp-hr
    FUEL_USE_RATE        DOUBLE,               -- Btu/hp-hr
    FUEL_HEAT_VAL        DOUBLE,               -- Btu/scf
    FUEL_H2S_CONTENT     DOUBLE,               -- ppmv
    EMISSION_CONTROLS    TEXT COLLATE NOCASE,  -- the item's text
    EXH_OUT_ANGLE        DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL     DOUBLE,               -- ft/s
    EXH_OUT_HGT          DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM   DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP    DOUBLE,               -- °F
    OTH_CTRL_DEVICE      BOOLEAN,
    OTH_CTRL_DESC        TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO    DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10  DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX   DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC   DOUBLE,               -- percent
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_NGE (
    EA_ID_AK      INTEGER PRIMARY KEY,
    OP_HR         DOUBLE,               -- hours of the month
    TOT_FUEL_USE  DOUBLE,               -- Mscf
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- NGT, natural gas, diesel or dual-fuel turbine. The _DIESEL columns are a second, optional fuel set.

CREATE TABLE ED_NGT (
    ED_ID_AK                    INTEGER PRIMARY KEY,
    MFG                         TEXT COLLATE NOCASE,
    model                       TEXT COLLATE NOCASE,
    Purpose                     TEXT COLLATE NOCASE,  -- EG, PP, OT
    MAX_HP                      DOUBLE,               -- hp
    OP_HP                       DOUBLE,               -- hp
    MAX_RATED_FUEL_USE          DOUBLE,
    FUEL_USE_RATE               DOUBLE,
    FUEL_HEAT_VAL               DOUBLE,               -- Btu/scf
    FUEL_H2S_CONTENT            DOUBLE,               -- ppmv
    EMISSION_CONTROLS           TEXT COLLATE NOCASE,  -- the item's text
    MAX_HP_DIESEL               DOUBLE,               -- hp
    OP_HP_DIESEL                DOUBLE,               -- hp
    MAX_RATED_FUEL_USE_DIESEL   DOUBLE,
    AVG_FUEL_USAGE_DIESEL       DOUBLE,
    FUEL_HEAT_VAL_DIESEL        DOUBLE,               -- Btu/lb
    FUEL_SULFUR_CONTENT_DIESEL  DOUBLE,               -- percent by mass
    EXH_OUT_ANGLE               DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL            DOUBLE,               -- ft/s
    EXH_OUT_HGT                 DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM          DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP           DOUBLE,               -- °F
    OTH_CTRL_DEVICE             BOOLEAN,
    OTH_CTRL_DESC               TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_CO           DOUBLE,               -- percent
    OTH_CTRL_EFFIC_NOX          DOUBLE,               -- percent
    OTH_CTRL_EFFIC_PM10         DOUBLE,               -- percent
    OTH_CTRL_EFFIC_SOX          DOUBLE,               -- percent
    OTH_CTRL_EFFIC_VOC          DOUBLE,               -- percent
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_NGT (
    EA_ID_AK             INTEGER PRIMARY KEY,
    OP_HR                DOUBLE,               -- hours of the month
    TOT_FUEL_USE         DOUBLE,               -- Mscf
    OP_HR_DIESEL         DOUBLE,               -- hours of the month
    TOT_FUEL_USE_DIESEL  DOUBLE,               -- gal
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- PNE, pneumatic pump. Make and model come from listPNE.

CREATE TABLE ED_PNE (
    ED_ID_AK            INTEGER PRIMARY KEY,
    MFG                 TEXT COLLATE NOCASE,
    model               TEXT COLLATE NOCASE,
    EMIS_DEST           TEXT COLLATE NOCASE,  -- VL, FL, VR, FR, RS
    SENT_TO_ID          TEXT COLLATE NOCASE,  -- VEN or FLA and the equipment's ID
    EXH_OUT_ANGLE       DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL    DOUBLE,               -- ft/s
    EXH_OUT_HGT         DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM  DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP   DOUBLE,               -- °F
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_PNE (
    EA_ID_AK       INTEGER PRIMARY KEY,
    OP_HR          DOUBLE,               -- hours of the month
    FUEL_USE_RATE  DOUBLE,               -- scf/hr
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- PRE, pneumatic controllers. Make and model come from listPRE.

CREATE TABLE ED_PRE (
    ED_ID_AK            INTEGER PRIMARY KEY,
    MFG                 TEXT COLLATE NOCASE,
    model               TEXT COLLATE NOCASE,
    SERVICE_TYP         TEXT COLLATE NOCASE,  -- the item's text: PC, LC, FC, Other
    EQUIP_ELEV          DOUBLE,               -- ft above msl
    EXH_OUT_ANGLE       DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL    DOUBLE,               -- ft/s
    EXH_OUT_HGT         DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM  DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP   DOUBLE,               -- °F
    QTY                 DOUBLE,               -- units of this make and model
    BLEED_RATE          TEXT COLLATE NOCASE,  -- the item's text
    SENT_TO_ID          TEXT COLLATE NOCASE,  -- read by the sheet, written by none
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_PRE (
    EA_ID_AK       INTEGER PRIMARY KEY,
    OP_HR          DOUBLE,               -- hours of the month
    FUEL_USE_RATE  DOUBLE,               -- scf/hr
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- STO, storage tank. A dimension that shape and orientation do not have is Null.

CREATE TABLE ED_STO (
    ED_ID_AK                     INTEGER PRIMARY KEY,
    CONDENSER_PRES               DOUBLE,               -- psia
    CONDENSER_TEMP               DOUBLE,               -- °F
    CTRL_TECH                    TEXT COLLATE NOCASE,  -- VR/C, NONE
    BREATH_VEN_PRES              DOUBLE,               -- psig
    BREATH_VEN_VAC               DOUBLE,               -- psig
    EXH_OUT_ANGLE                DOUBLE,               -- degrees
    EXH_OUT_EXIT_VEL             DOUBLE,               -- ft/s
    EXH_OUT_HGT                  DOUBLE,               -- ft above msl
    EXH_OUT_INNER_DIAM           DOUBLE,               -- in
    EXH_OUT_EXIT_TEMP            DOUBLE,               -- °F
    FIXED_ROOF                   BOOLEAN,              -- fixed, not floating
    FLA_COMBUST_TEMP             DOUBLE,               -- °F
    FLA_EFFIC                    DOUBLE,               -- percent
    FLA_FEED_RATE                DOUBLE,               -- scf/hr
    EMIS_DEST                    TEXT COLLATE NOCASE,  -- VL, FL, VR, FR, RS
    OTH_CTRL_DESC                TEXT COLLATE NOCASE,
    OTH_CTRL_DEVICE              BOOLEAN,
    OTH_CTRL_EFFIC_VOC           DOUBLE,               -- percent
    PROD_TYP                     TEXT COLLATE NOCASE,  -- CR, CO
    IS_EQUIPPED_WITH_FLASH_TANK  TEXT COLLATE NOCASE,  -- Yes or No, as text
    TANK_ORIENTATION             TEXT COLLATE NOCASE,  -- V, H
    TANK_PAINT_COLOR             TEXT COLLATE NOCASE,  -- AS, AD, GL, GM, RP, WN
    TANK_PAINT_CND               TEXT COLLATE NOCASE,  -- G, P
    TANK_ROOF_TYP                TEXT COLLATE NOCASE,  -- C, D, F, P
    TANK_SHAPE                   TEXT COLLATE NOCASE,  -- C, R
    TANK_ROOF_HGT                DOUBLE,               -- ft above shell
    TANK_SHELL_DIAM              DOUBLE,               -- ft
    TANK_SHELL_HGT               DOUBLE,               -- ft
    TANK_SHELL_LENGTH            DOUBLE,               -- ft
    TANK_SHELL_WIDTH1            DOUBLE,               -- ft
    TANK_SHELL_WIDTH2            DOUBLE,               -- ft
    SENT_TO_ID                   TEXT COLLATE NOCASE,  -- VEN or FLA and the equipment's ID
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_STO (
    EA_ID_AK            INTEGER PRIMARY KEY,
    THRUPUT             DOUBLE,               -- bbl
    TANK_BULK_LIQ_TEMP  DOUBLE,               -- °F
    TANK_AVG_LIQ_HGT    DOUBLE,               -- ft
    API_GRAV            DOUBLE,               -- °API
    REID_VP             DOUBLE,               -- psia
    TANK_VAPWGT_PVOC    DOUBLE,               -- percent by weight
    TANK_VOC_MOLEWGT    DOUBLE,               -- lb/lb-mol
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- VEN, cold vent.

CREATE TABLE ED_VEN (
    ED_ID_AK            INTEGER PRIMARY KEY,
    VENT_TYP            TEXT COLLATE NOCASE,  -- H, L
    CTRL_TECH           TEXT COLLATE NOCASE,  -- CND, NONE
    CONDENSER_PRES      DOUBLE,               -- psia
    CONDENSER_TEMP      DOUBLE,               -- °F
    OTH_CTRL_DEVICE     BOOLEAN,
    OTH_CTRL_DESC       TEXT COLLATE NOCASE,
    OTH_CTRL_EFFIC_VOC  DOUBLE,               -- percent
    STK_ANGLE           DOUBLE,               -- degrees
    STK_EXIT_VEL        DOUBLE,               -- ft/s
    STK_INNER_DIAM      DOUBLE,               -- in
    STK_OUT_ELEV        DOUBLE,               -- ft above msl
    STK_EXIT_TEMP       DOUBLE,               -- °F
    FOREIGN KEY (ED_ID_AK) REFERENCES ED_EQUIP_DESC (ED_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

CREATE TABLE EA_VEN (
    EA_ID_AK      INTEGER PRIMARY KEY,
    OP_HR         DOUBLE,               -- hours of the month
    VOL_VENTED    DOUBLE,               -- Mscf
    CONC_H2S      DOUBLE,               -- ppmv
    CONC_VOC      DOUBLE,               -- ppmv
    VOC_MOLE_WGT  DOUBLE,               -- lb/lb-mol
    FOREIGN KEY (EA_ID_AK) REFERENCES EA_EQUIP_ACTV (EA_ID_AK) ON DELETE CASCADE ON UPDATE CASCADE
);

-- ----------------------------------------------------------------------------------------
-- Findings
-- ----------------------------------------------------------------------------------------
-- Neither table has a key, and no relation ties a finding to its structure or equipment: a finding is
-- known by its location and field.

CREATE TABLE QC (
    UserID     TEXT COLLATE NOCASE,
    Month      INTEGER,
    Year       INTEGER,
    Level      TEXT COLLATE NOCASE,  -- SURVEY, STRUCTURE, EQUIPMENT
    CmplxID    TEXT COLLATE NOCASE,  -- NA above structure level
    StructID   TEXT COLLATE NOCASE,  -- NA above structure level
    EquipType  TEXT COLLATE NOCASE,  -- NA above equipment level
    EquipID    TEXT COLLATE NOCASE,  -- NA above equipment level
    FieldID    TEXT COLLATE NOCASE,  -- tag of the field
    [Desc]     TEXT COLLATE NOCASE,
    Comments   TEXT COLLATE NOCASE,  -- the user's; empty, not Null, in a new finding
    EditMode   TEXT COLLATE NOCASE   -- DESC, ACTV
);

CREATE INDEX ix_QC_location ON QC (UserID, CmplxID, StructID, EquipType, EquipID, Month, Year);

-- Findings of the annual pass, rebuilt by each run.

CREATE TABLE QCInventory (
    UserID     TEXT COLLATE NOCASE,
    Month      INTEGER,              -- 99 about the operator and in the summary
    Year       INTEGER,              -- 9999 about the operator and in the summary
    CmplxID    TEXT COLLATE NOCASE,
    StructID   TEXT COLLATE NOCASE,
    Level      TEXT COLLATE NOCASE,  -- USER, STRUCTURE, EQUIPMENT, ZSUMMARY
    EquipType  TEXT COLLATE NOCASE,
    EquipID    TEXT COLLATE NOCASE,
    FieldID    TEXT COLLATE NOCASE,
    TimeStamp  DATETIME,             -- always 7/4/1976, no time of any event
    FieldDesc  TEXT COLLATE NOCASE,
    [Desc]     TEXT COLLATE NOCASE
);

-- ----------------------------------------------------------------------------------------
-- Makes and models
-- ----------------------------------------------------------------------------------------
-- The sheets of pneumatic pumps and controllers add to these lists. A list box skips a value only when it
-- equals the one before it, so like values stand together.

CREATE TABLE listPNE (
    Mfr    TEXT COLLATE NOCASE,
    Model  TEXT COLLATE NOCASE
);

CREATE INDEX ix_listPNE_Mfr_Model ON listPNE (Mfr, Model);

CREATE TABLE listPRE (
    ServiceType  TEXT COLLATE NOCASE,  -- PC, LC, FC, Other
    Mfr          TEXT COLLATE NOCASE,
    Model        TEXT COLLATE NOCASE
);

CREATE INDEX ix_listPRE_ServiceType_Mfr_Model ON listPRE (ServiceType, Mfr, Model);

INSERT INTO listPNE (Mfr, Model) VALUES
    ('Generic', 'Diaphragm pump'),
    ('Generic', 'Piston pump'),
    ('Generic', 'Plunger pump');

INSERT INTO listPRE (ServiceType, Mfr, Model) VALUES
    ('FC',    'Generic', 'Pilot controller'),
    ('FC',    'Generic', 'Relay controller'),
    ('LC',    'Generic', 'Pilot controller'),
    ('LC',    'Generic', 'Relay controller'),
    ('Other', 'Generic', 'Pilot controller'),
    ('Other', 'Generic', 'Relay controller'),
    ('PC',    'Generic', 'Pilot controller'),
    ('PC',    'Generic', 'Relay controller');

-- ----------------------------------------------------------------------------------------
-- Structures by month, in the words of the findings
-- ----------------------------------------------------------------------------------------

CREATE VIEW Structures AS
SELECT PD.RIMA_CO_NUM  AS UserID,
       PA.PA_MO        AS Month,
       PA.PA_YR        AS Year,
       PD.CMPLX_ID_NUM AS CmplxID,
       PD.STRUCT_NUM   AS StructID,
       PD.Area         AS Area,
       PD.Block        AS Block,
       PD.Name         AS Name,
       CASE PA.status WHEN 'I' THEN 'Inactive' ELSE 'Active' END AS Status,
       PA.PROD_OIL     AS ProdOil,
       PA.THRU_OIL     AS ThruOil,
       -- No sheet writes the rest: additional throughput, and where the oil is processed.
       NULL            AS AddThruOil,
       NULL            AS OilProcAtStructType,
       NULL            AS OilProcAtCmplxID,
       NULL            AS OilProcAtStructID
FROM PD_PLATFORM_DESC AS PD
     INNER JOIN PA_PLATFORM_ACTV AS PA ON PA.PD_ID_AK = PD.PD_ID_AK;

-- ----------------------------------------------------------------------------------------
-- Staging tables of the structure import
-- ----------------------------------------------------------------------------------------
-- Twins of the tables above: the same columns in the same order, so that rows go over by position, but no keys
-- and no relations, since their rows get new keys when they move over. Texts compare exactly in them. They are
-- empty between imports.

CREATE TABLE H_PD_PLATFORM_DESC AS SELECT * FROM PD_PLATFORM_DESC WHERE 0;
CREATE TABLE H_PA_PLATFORM_ACTV AS SELECT * FROM PA_PLATFORM_ACTV WHERE 0;
CREATE TABLE H_ED_EQUIP_DESC    AS SELECT * FROM ED_EQUIP_DESC    WHERE 0;
CREATE TABLE H_EA_EQUIP_ACTV    AS SELECT * FROM EA_EQUIP_ACTV    WHERE 0;
CREATE TABLE H_ED_AMI           AS SELECT * FROM ED_AMI           WHERE 0;
CREATE TABLE H_ED_BOI           AS SELECT * FROM ED_BOI           WHERE 0;
CREATE TABLE H_ED_DIE           AS SELECT * FROM ED_DIE           WHERE 0;
CREATE TABLE H_ED_FLA           AS SELECT * FROM ED_FLA           WHERE 0;
CREATE TABLE H_ED_GLY           AS SELECT * FROM ED_GLY           WHERE 0;
CREATE TABLE H_ED_DRI           AS SELECT * FROM ED_DRI           WHERE 0;
CREATE TABLE H_ED_LOA           AS SELECT * FROM ED_LOA           WHERE 0;
CREATE TABLE H_ED_LOS           AS SELECT * FROM ED_LOS           WHERE 0;
CREATE TABLE H_ED_MUD           AS SELECT * FROM ED_MUD           WHERE 0;
CREATE TABLE H_ED_NGE           AS SELECT * FROM ED_NGE           WHERE 0;
CREATE TABLE H_ED_NGT           AS SELECT * FROM ED_NGT           WHERE 0;
CREATE TABLE H_ED_PNE           AS SELECT * FROM ED_PNE           WHERE 0;
CREATE TABLE H_ED_PRE           AS SELECT * FROM ED_PRE           WHERE 0;
CREATE TABLE H_ED_STO           AS SELECT * FROM ED_STO           WHERE 0;
CREATE TABLE H_ED_VEN           AS SELECT * FROM ED_VEN           WHERE 0;
CREATE TABLE H_ED_FUG           AS SELECT * FROM ED_FUG           WHERE 0;
CREATE TABLE H_EA_AMI           AS SELECT * FROM EA_AMI           WHERE 0;
CREATE TABLE H_EA_BOI           AS SELECT * FROM EA_BOI           WHERE 0;
CREATE TABLE H_EA_DIE           AS SELECT * FROM EA_DIE           WHERE 0;
CREATE TABLE H_EA_FLA           AS SELECT * FROM EA_FLA           WHERE 0;
CREATE TABLE H_EA_GLY           AS SELECT * FROM EA_GLY           WHERE 0;
CREATE TABLE H_EA_DRI           AS SELECT * FROM EA_DRI           WHERE 0;
CREATE TABLE H_EA_LOA           AS SELECT * FROM EA_LOA           WHERE 0;
CREATE TABLE H_EA_LOS           AS SELECT * FROM EA_LOS           WHERE 0;
CREATE TABLE H_EA_MUD           AS SELECT * FROM EA_MUD           WHERE 0;
CREATE TABLE H_EA_NGE           AS SELECT * FROM EA_NGE           WHERE 0;
CREATE TABLE H_EA_NGT           AS SELECT * FROM EA_NGT           WHERE 0;
CREATE TABLE H_EA_PNE           AS SELECT * FROM EA_PNE           WHERE 0;
CREATE TABLE H_EA_PRE           AS SELECT * FROM EA_PRE           WHERE 0;
CREATE TABLE H_EA_STO           AS SELECT * FROM EA_STO           WHERE 0;
CREATE TABLE H_EA_VEN           AS SELECT * FROM EA_VEN           WHERE 0;
