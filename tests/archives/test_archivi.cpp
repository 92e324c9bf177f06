// Chart archives: which tables are archives, the schema, a chart saved and read back, the three
// answers to "Tema Doppio", the names of new archives (duplicates, quotes and brackets, names
// the database refuses), and the read of a row deleted meanwhile.
#include <gtest/gtest.h>

#include <filesystem>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;
using vesmo::test::Cartella;

namespace {

Tema Rossi() {
    Tema t;
    t.Nome = "Mario Rossi";
    t.City = "Padova";
    t.Stato = "Italy";
    t.Day = GiornoGiuliano(1980, 1, 15);
    t.OraL = GradiDecimali(15, 5, 0);
    t.Lon = -GradiDecimali(11, 53, 0) / 15;
    t.Lat = GradiDecimali(45, 24, 0);
    t.Fuso = -1;
    t.Estiva = 0;
    t.Cmto = "primo figlio";
    return t;
}

using ArchiviTest = vesmo::test::ConArchivi;

} // namespace

TEST_F(ArchiviTest, SchemaEFiltroDeiNomi) {
    CreaArchivio(fileDB, "Famiglia");
    {
        Database db(fileDB);
        EXPECT_EQ(db.Campi("Famiglia"), CampiArchivio());
        ASSERT_EQ(db.Indici("Famiglia").size(), 1u);
        EXPECT_EQ(db.Indici("Famiglia")[0], (DefIndice{"indNome", {"Nome"}, false, false}));
        for (const char* t : {"MSysObjects", "TempMSysCopia", "msys amici", " Nazioni "})
            db.CreaTabella(t, {{"x", TipoCampo::Intero32}});
    }
    // The place tables and every name holding "MSys" are left out; small letters are listed.
    EXPECT_EQ(ElencoArchivi(fileDB), (std::vector<std::string>{"Famiglia", "msys amici"}));
    EXPECT_THROW(ElencoArchivi((cartella / "manca.Mdb").string()), ErroreDB);
}

TEST_F(ArchiviTest, SalvaDueVolteConLeTreRisposte) {
    CreaArchivio(fileDB, "Famiglia");
    const Tema t = Rossi();

    // First save: no question.
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", t, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::Aggiunto);
    EXPECT_TRUE(messaggi.registro.empty());
    ASSERT_EQ(Temi("Famiglia"), std::vector<Tema>{t});

    // Second save of the same name, Cancel: the question, and nothing written.
    Tema t2 = t;
    t2.OraL = 9.5;
    t2.Cmto = "";
    messaggi.risposte = {Risposta::Annulla};
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", t2, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::Annullato);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    const auto& domanda = messaggi.registro[0];
    EXPECT_EQ(domanda.titolo, "Tema Doppio");
    EXPECT_EQ(domanda.testo, "Mario Rossi                   \n\n"
                             "è GIA' PRESENTE nel DataBase\n\n"
                             "Sì =          Sovrascrivo\n"
                             "No =         Aggiungo senza sovrascrivere\n"
                             "Annulla =  Nessun salvataggio\n\n");
    EXPECT_EQ(domanda.pulsanti, Pulsanti::SiNoAnnulla);
    EXPECT_EQ(domanda.icona, Icona::Domanda);
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{t});

    // Yes: the row is rewritten, an empty comment stored as zero-length text.
    messaggi.risposte = {Risposta::Si};
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", t2, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::Sovrascritto);
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{t2});
    {
        Database db(fileDB);
        Cursore rs(db, "Famiglia");
        EXPECT_TRUE(rs.Campo("Cmto").ETesto());
        EXPECT_EQ(rs.Campo("Cmto").Testo(), "");
        EXPECT_EQ(rs.Campo("Nome").Testo(), "Mario Rossi                   ");
        EXPECT_EQ(rs.Campo("Nazione").Testo().size(), 38u);
    }

    // No: a second chart of that name.
    messaggi.risposte = {Risposta::No};
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", t, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::AggiuntoDoppio);
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{t2, t}));

    // From then on Yes rewrites the first of the two in index order.
    Tema t3 = t;
    t3.City = "Venezia";
    messaggi.risposte = {Risposta::Si};
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", t3, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::Sovrascritto);
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{t3, t}));
    EXPECT_EQ(messaggi.registro.size(), 4u);

    // Another name is added without a question.
    Tema altro = t;
    altro.Nome = "Anna Bianchi";
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", altro, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::Aggiunto);
    EXPECT_EQ(messaggi.registro.size(), 4u);
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{altro, t3, t}));
}

TEST_F(ArchiviTest, ArchivioSparitoOFileMancante) {
    EXPECT_EQ(SalvaTema(fileDB, "Sparito", Rossi(), messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::NonSalvato);
    EXPECT_EQ(
        test::Mostrati(messaggi),
        (test::Riquadri{{"Vesmo - frmSalvoLyx.cmdSalva",
                         "L'Archivio  Sparito  non è più nel DataBase\n" + std::string(30, '-') +
                             "\nThe archive is no longer in the database.\n"}}));
    // The name must be the table's own: a list always gives it so.
    CreaArchivio(fileDB, "Famiglia");
    EXPECT_EQ(SalvaTema(fileDB, "FAMIGLIA", Rossi(), messaggi, "x"), EsitoSalvataggio::NonSalvato);

    messaggi.registro.clear();
    EXPECT_EQ(SalvaTema((cartella / "manca.Mdb").string(), "Famiglia", Rossi(), messaggi,
                        "frmGesArchivi.cmdSalva"),
              EsitoSalvataggio::NonSalvato);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - frmGesArchivi.cmdSalva");
    EXPECT_EQ(messaggi.registro[0].testo.substr(0, 11), "Errore 3024");
}

TEST_F(ArchiviTest, NomeDoppioChiedeUnAltroNome) {
    const std::vector<std::string> elenco = {"Alfa", "foo", "Zeta"};
    EXPECT_EQ(NomeNuovoArchivio("   ", elenco, messaggi), std::nullopt);
    EXPECT_EQ(NomeNuovoArchivio("  Nuovo ", elenco, messaggi), "Nuovo");
    EXPECT_TRUE(messaggi.registro.empty());

    messaggi.input = {"Beta"};
    EXPECT_EQ(NomeNuovoArchivio("FOO", elenco, messaggi), "Beta");
    EXPECT_EQ(
        test::Mostrati(messaggi),
        (test::Riquadri{{"frmGesArchivi.cmdCrea: Nome Doppio",
                         "L'Archivio  FOO  Esiste già\nDigitare un nome diverso o annullare "}}));
    EXPECT_EQ(messaggi.registro[0].tipo, MessaggiRegistrati::Voce::Input);

    // An empty answer, or a cancelled box, ends it.
    messaggi.input = {""};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), std::nullopt);
    messaggi.input = {std::nullopt};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), std::nullopt);

    // The answer is compared with the archives that follow, not with those passed.
    messaggi.input = {"zeta", "Omega"};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), "Omega");
    messaggi.input = {"alfa"};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), "alfa");
}

// One rule for every name of an archive: what a file name and a table name can both hold, at most
// 64 characters, no places table and no name the engine keeps.
TEST_F(ArchiviTest, UnaRegolaPerINomiDegliArchivi) {
    struct Caso {
        std::string nome;
        const char* perche; // the start of the refusal, or nullptr when the name is taken
    };
    const Caso casi[] = {
        {"Famiglia", nullptr},
        {"Temi Rossi (2024); DROP TABLE AllCity;--'", nullptr},
        {"Città d'arte", nullptr},
        {std::string(64, 'x'), nullptr},
        {"\xc3\xa8" + std::string(63, 'x'), nullptr}, // 64 characters, 65 bytes
        {"sqlitemio", nullptr},
        {"NomiAlternativiMiei", nullptr},
        {"", "nome dell'archivio vuoto"},
        {"   ", "nome dell'archivio vuoto"},
        {" Famiglia", "nome dell'archivio con spazi"},
        {std::string(65, 'x'), "nome dell'archivio troppo lungo: al massimo 64 caratteri"},
        {std::string(5000, 'x'), "nome dell'archivio troppo lungo"},
        {"../../x", "il nome dell'archivio non può contenere il carattere ."},
        {"a/b", "il nome dell'archivio non può contenere il carattere /"},
        {"a\\b", "il nome dell'archivio non può contenere il carattere \\"},
        {"..", "il nome dell'archivio non può contenere il carattere ."},
        {"Temi \"Rossi\"", "il nome dell'archivio non può contenere il carattere \""},
        {"Temi [2024]", "il nome dell'archivio non può contenere il carattere ["},
        {"a:b", "il nome dell'archivio non può contenere il carattere :"},
        {"a*b", "il nome dell'archivio non può contenere il carattere *"},
        {"a\nb", "il nome dell'archivio non può contenere caratteri di controllo"},
        {"a\tb", "il nome dell'archivio non può contenere caratteri di controllo"},
        {"a\x7f", "il nome dell'archivio non può contenere caratteri di controllo"},
        {"a\xff", "nome dell'archivio non è testo UTF-8 valido"},
        {"AllCity", "nome riservato a una tabella del database: AllCity"},
        {"nomialternativi", "nome riservato a una tabella del database: nomialternativi"},
        {"NomiAlternativi", "nome riservato"},
        {"ZONEORARIE", "nome riservato"},
        {"sqlite_temi", "nome riservato"},
        {"TempMSysCopia", "nome riservato"},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.nome.substr(0, 70));
        const std::optional<std::string> errore = ErroreNomeArchivio(c.nome);
        EXPECT_EQ(NomeArchivioValido(c.nome), c.perche == nullptr);
        if (c.perche) {
            ASSERT_TRUE(errore);
            EXPECT_EQ(errore->rfind(c.perche, 0), 0u) << *errore;
        }
    }

    // The create button: a name the rule refuses is told, nothing is created.
    const std::string strano = "Temi Rossi (2024); DROP TABLE AllCity;--'";
    ASSERT_EQ(CreaArchivioUtente(fileDB, strano, {}, messaggi), strano);
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(SalvaTema(fileDB, strano, Rossi(), messaggi, "x"), EsitoSalvataggio::Aggiunto);
    EXPECT_EQ(Temi(strano), std::vector<Tema>{Rossi()});
    const auto campiAllCity = Database(fileDB).Campi("AllCity");
    for (const std::string& nome :
         std::vector<std::string>{"AllCity", "../../x", "sqlite_temi", "NomiAlternativi"}) {
        messaggi.registro.clear();
        EXPECT_EQ(CreaArchivioUtente(fileDB, nome, ElencoArchivi(fileDB), messaggi), std::nullopt);
        EXPECT_EQ(
            test::Mostrati(messaggi),
            (test::Riquadri{{"frmGesArchivi.cmdCrea: Nome Non Valido",
                             "Il nome  " + nome + "  non vale per un Archivio:\n" +
                                 *ErroreNomeArchivio(nome) + "\nArchivio non creato.\n" +
                                 std::string(30, '-') + "\nThis name cannot name an archive.\n"}}));
    }
    EXPECT_EQ(Database(fileDB).Campi("AllCity"), campiAllCity);
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{strano});
}

// The files named after an archive stay in their folder whatever the archive is called.
TEST_F(ArchiviTest, FileDiUnArchivioNellaSuaCartella) {
    const std::pair<std::string, std::string> casi[] = {
        {"Famiglia", "Famiglia.log"},
        {"../../x", "______x.log"},
        {"..", "__.log"},
        {"a/b\\c", "a_b_c.log"},
        {"a\nb", "a_b.log"},
        {"", "_.log"},
        {std::string(300, 'x'), std::string(64, 'x') + ".log"},
        {"Citt\xc3\xa0", "Citt\xc3\xa0.log"},
        {"a\xff", "a\xef\xbf\xbd.log"},
    };
    for (const auto& [archivio, file] : casi)
        EXPECT_EQ(FileDiArchivio("/cartella/prog", archivio, ".log"),
                  std::filesystem::path("/cartella/prog") / file)
            << archivio;
}

// Every places table is reserved, whatever the case of its name: not an archive, never dropped.
TEST_F(ArchiviTest, TabelleDeiLuoghiMaiArchivi) {
    {
        Database db(fileDB);
        for (std::string_view t : TabelleDeiLuoghi)
            if (!db.EsisteTabella(t)) db.CreaTabella(std::string(t), {{"x", TipoCampo::Intero32}});
    }
    CreaArchivio(fileDB, "Famiglia");
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{"Famiglia"});
    for (std::string_view t : TabelleDeiLuoghi) {
        EXPECT_FALSE(EArchivio(t)) << t;
        EXPECT_FALSE(EArchivio(Maiuscole(t))) << t;
        EXPECT_FALSE(EliminaArchivio(fileDB, std::string(t))) << t;
        EXPECT_TRUE(Database(fileDB).EsisteTabella(t)) << t;
    }
}

// A damaged file: the save and the creation refuse it, naming it, and write nothing.
TEST_F(ArchiviTest, FileDanneggiatoNonSiScrive) {
    Riempi("Famiglia", {"Anna"});
    {
        Database db(fileDB);
        db.CreaTabella("Zavorra", {{"t", TipoCampo::Memo, 0, true}});
        db.IniziaTransazione();
        for (int i = 0; i < 400; ++i)
            db.Esegui("INSERT INTO Zavorra (t) VALUES ('" + std::string(300, 'z') + "')");
        db.ConfermaTransazione();
    }
    test::DanneggiaUltimaPagina(fileDB);
    const auto prima = std::filesystem::file_size(fileDB);
    const auto tempo = std::filesystem::last_write_time(fileDB);
    messaggi.registro.clear();
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", Rossi(), messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::NonSalvato);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - frmSalvoLyx.cmdSalva");
    EXPECT_NE(messaggi.registro[0].testo.find("3343"), std::string::npos);
    EXPECT_NE(messaggi.registro[0].testo.find(fileDB + " è danneggiato"), std::string::npos)
        << messaggi.registro[0].testo;

    messaggi.registro.clear();
    EXPECT_EQ(CreaArchivioUtente(fileDB, "Amici", ElencoArchivi(fileDB), messaggi), std::nullopt);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "frmGesArchivi.cmdCrea: DataBase");
    EXPECT_EQ(messaggi.registro[0].testo.rfind(
                  "Il file non è un DataBase valido o è danneggiato:\n" + fileDB, 0),
              0u);
    EXPECT_EQ(std::filesystem::file_size(fileDB), prima);
    EXPECT_EQ(std::filesystem::last_write_time(fileDB), tempo);
    EXPECT_EQ(Database(fileDB).Tabelle().size(), 8u); // six places tables, Famiglia, Zavorra
}

// A database that cannot take the new table is told for what it is, not as a refused name.
TEST_F(ArchiviTest, DatabaseBloccatoODiSolaLettura) {
    const std::string trattini(30, '-');
    {
        Database altro(fileDB);
        altro.Esegui("BEGIN EXCLUSIVE");
        altro.Esegui("DELETE FROM AllCity");
        EXPECT_EQ(CreaArchivioUtente(fileDB, "Famiglia", {}, messaggi), std::nullopt);
        altro.Esegui("ROLLBACK");
    }
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "frmGesArchivi.cmdCrea: DataBase");
    EXPECT_EQ(messaggi.registro[0].testo, "Il DataBase è bloccato da un altro programma:\n" +
                                              fileDB + "\nArchivio non creato.\n" + trattini +
                                              "\nThe database is locked by another program.\n");

    messaggi.registro.clear();
    {
        test::FileSolaLettura solaLettura(fileDB);
        if (!solaLettura.Riuscito()) GTEST_SKIP() << "no read-only file for this user here";
        EXPECT_EQ(CreaArchivioUtente(fileDB, "Famiglia", {}, messaggi), std::nullopt);
    }
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "frmGesArchivi.cmdCrea: DataBase");
    EXPECT_EQ(messaggi.registro[0].testo, "Il DataBase è di sola lettura:\n" + fileDB +
                                              "\nArchivio non creato.\n" + trattini +
                                              "\nThe database is read-only.\n");
    EXPECT_TRUE(ElencoArchivi(fileDB).empty());
}

TEST_F(ArchiviTest, LetturaDiUnaRigaEliminata) {
    CreaArchivio(fileDB, "Famiglia");
    Tema a = Rossi(), b = Rossi();
    a.Nome = "Anna";
    b.Nome = "Bruno";
    b.City = "Roma";
    for (const Tema& t : {a, b})
        SalvaTema(fileDB, "Famiglia", t, messaggi, "x");

    Database db(fileDB);
    Cursore rs(db, "Famiglia");
    rs.Index(IndiceArchivio);
    rs.MoveLast();
    rs.Delete();
    Tema letto;
    LeggiRecordTema(rs, letto);
    // The first field met the deleted row; the rest came from the first row.
    Tema atteso = a;
    atteso.Nome = Tema().Nome;
    EXPECT_EQ(letto, atteso);
}

TEST_F(ArchiviTest, CaricaTemaXCalcolaIlTema) {
    CreaArchivio(fileDB, "Famiglia");
    SalvaTema(fileDB, "Famiglia", Rossi(), messaggi, "x");
    Sessione s;
    s.TemaX.ZonaSF = "CET";
    s.PosX.Sole.Lo = 999;
    Database db(fileDB);
    Cursore rs(db, "Famiglia");
    CaricaTemaX(rs, s, messaggi);
    EXPECT_EQ(s.TemaX, Rossi());
    Case c;
    Posizioni attese;
    CastaTema(Rossi(), c, attese, s.LunaGeo, messaggi);
    EXPECT_EQ(s.PosX, attese);
    EXPECT_GT(s.PosX.Sole.Lo, 294);
    EXPECT_LT(s.PosX.Sole.Lo, 295);
}
