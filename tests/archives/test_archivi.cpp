// Chart archives: which tables are archives, the schema, a chart saved and read back, the three
// answers to "Tema Doppio", the names of new archives (duplicates, quotes and brackets, names
// the database refuses), and the read of a row deleted meanwhile.
#include <gtest/gtest.h>

#include "archives/Archivi.h"
#include "chart/CalcolaTema.h"
#include "core/Aritmetica.h"
#include "core/store/Connessione.h"
#include "tests/archives/AiutoArchivi.h"

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
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "Vesmo - frmSalvoLyx.cmdSalva");
    EXPECT_EQ(messaggi.registro[0].testo, "L'Archivio  Sparito  non è più nel DataBase\n" +
                                              std::string(30, '-') +
                                              "\nThe archive is no longer in the database.\n");
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
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].tipo, MessaggiRegistrati::Voce::Input);
    EXPECT_EQ(messaggi.registro[0].titolo, "frmGesArchivi.cmdCrea: Nome Doppio");
    EXPECT_EQ(messaggi.registro[0].testo,
              "L'Archivio  FOO  Esiste già\nDigitare un nome diverso o annullare ");

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

TEST_F(ArchiviTest, NomiConVirgoletteEParentesiENomiRifiutati) {
    const std::string strano = "Temi \"Rossi\" [2024]; DROP TABLE AllCity;--'";
    ASSERT_EQ(CreaArchivioUtente(fileDB, strano, {}, messaggi), strano);
    EXPECT_TRUE(messaggi.registro.empty());
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{strano});
    const auto campiAllCity = Database(fileDB).Campi("AllCity");
    EXPECT_EQ(SalvaTema(fileDB, strano, Rossi(), messaggi, "x"), EsitoSalvataggio::Aggiunto);
    EXPECT_EQ(Temi(strano), std::vector<Tema>{Rossi()});
    EXPECT_TRUE(Database(fileDB).EsisteTabella("AllCity"));

    // A place table's name is not refused by the list, but the database has it already.
    EXPECT_EQ(CreaArchivioUtente(fileDB, "AllCity", ElencoArchivi(fileDB), messaggi), std::nullopt);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].titolo, "frmGesArchivi.cmdCrea: Nome Non Valido");
    EXPECT_EQ(messaggi.registro[0].testo,
              "Nel DataBase esiste già una tabella di nome  AllCity\nArchivio non creato.\n" +
                  std::string(30, '-') + "\nA table of this name already exists.\n");
    EXPECT_EQ(Database(fileDB).Campi("AllCity"), campiAllCity);

    // A name the engine keeps for itself.
    messaggi.registro.clear();
    EXPECT_EQ(CreaArchivioUtente(fileDB, "sqlite_temi", {}, messaggi), std::nullopt);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    EXPECT_EQ(messaggi.registro[0].testo.substr(0, 47),
              "Il DataBase non accetta il nome  sqlite_temi\nAr");
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{strano});
}

// A database that cannot take the new table is told for what it is, not as a refused name.
TEST_F(ArchiviTest, DatabaseBloccatoODiSolaLettura) {
    const std::string trattini(30, '-');
    const int attesa = store_detail::AttesaBloccoMs;
    store_detail::AttesaBloccoMs = 50;
    {
        Database altro(fileDB);
        altro.Esegui("BEGIN EXCLUSIVE");
        altro.Esegui("DELETE FROM AllCity");
        EXPECT_EQ(CreaArchivioUtente(fileDB, "Famiglia", {}, messaggi), std::nullopt);
        altro.Esegui("ROLLBACK");
    }
    store_detail::AttesaBloccoMs = attesa;
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
    Tema a = Rossi();
    a.Nome = "Anna";
    Tema b = Rossi();
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
