// Chart archives: which tables they are, saving, their names and files, an unwritable database.
#include <gtest/gtest.h>

#include <filesystem>

#include "archives/Archivi.h"
#include "archives/Gestione.h"
#include "chart/CalcolaTema.h"
#include "tests/archives/AiutoArchivi.h"
#include "tests/places/AiutoLuoghi.h"

using namespace vesmo;
using vesmo::test::Mostrati;
using vesmo::test::Riquadri;
using vesmo::test::TemaDiProva;

namespace {

using ArchiviTest = vesmo::test::ConArchivi;
const std::string Trattini(30, '-');

} // namespace

// Place tables and "MSys" names in any case are no archives; only an archive's exact name drops.
TEST_F(ArchiviTest, QualiTabelleSonoArchivi) {
    CreaArchivio(fileDB, "Famiglia");
    {
        Database db(fileDB);
        EXPECT_EQ(db.Campi("Famiglia"), CampiArchivio());
        EXPECT_EQ(db.Indici("Famiglia"),
                  (std::vector<DefIndice>{{"indNome", {"Nome"}, false, false}}));
        for (const char* t : {"MSysObjects", "TempMSysCopia", "msys amici", " Nazioni "})
            db.CreaTabella(t, {{"x", TipoCampo::Intero32}});
        for (std::string_view t : TabelleDeiLuoghi)
            if (!db.EsisteTabella(t)) db.CreaTabella(std::string(t), {{"x", TipoCampo::Intero32}});
    }
    EXPECT_EQ(ElencoArchivi(fileDB), (std::vector<std::string>{"Famiglia", "msys amici"}));
    EXPECT_THROW(ElencoArchivi((cartella / "manca.Mdb").string()), ErroreDB);
    for (std::string_view t : TabelleDeiLuoghi) {
        EXPECT_FALSE(EArchivio(t) || EArchivio(Maiuscole(t))) << t;
        EXPECT_FALSE(EliminaArchivio(fileDB, std::string(t))) << t;
        EXPECT_TRUE(Database(fileDB).EsisteTabella(t)) << t;
    }
    EXPECT_FALSE(EliminaArchivio(fileDB, "famiglia"));
    EXPECT_TRUE(EliminaArchivio(fileDB, "Famiglia"));
    EXPECT_EQ(ElencoArchivi(fileDB), std::vector<std::string>{"msys amici"});
}

TEST_F(ArchiviTest, SalvaDueVolteConLeTreRisposte) {
    CreaArchivio(fileDB, "Famiglia");
    const Tema t = TemaDiProva("Mario Rossi");
    auto salva = [&](const Tema& tema, std::deque<Risposta> risposte) {
        messaggi.risposte = std::move(risposte);
        return SalvaTema(fileDB, "Famiglia", tema, messaggi, "frmSalvoLyx.cmdSalva");
    };
    EXPECT_EQ(salva(t, {}), EsitoSalvataggio::Aggiunto);
    EXPECT_TRUE(messaggi.registro.empty());

    // The same name, Cancel: the question, and nothing written.
    Tema t2 = t;
    t2.OraL = 9.5;
    t2.Cmto = "";
    EXPECT_EQ(salva(t2, {Risposta::Annulla}), EsitoSalvataggio::Annullato);
    ASSERT_EQ(messaggi.registro.size(), 1u);
    const auto& d = messaggi.registro[0];
    EXPECT_EQ(std::tuple(d.titolo, d.testo, d.pulsanti, d.icona),
              std::tuple("Tema Doppio",
                         "Mario Rossi                   \n\n"
                         "è GIA' PRESENTE nel DataBase\n\n"
                         "Sì =          Sovrascrivo\n"
                         "No =         Aggiungo senza sovrascrivere\n"
                         "Annulla =  Nessun salvataggio\n\n",
                         Pulsanti::SiNoAnnulla, Icona::Domanda));
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{t});

    // Yes: the row is rewritten, an empty comment stored as zero-length text.
    EXPECT_EQ(salva(t2, {Risposta::Si}), EsitoSalvataggio::Sovrascritto);
    EXPECT_EQ(Temi("Famiglia"), std::vector<Tema>{t2});
    {
        Database db(fileDB);
        Cursore rs(db, "Famiglia");
        EXPECT_TRUE(rs.Campo("Cmto").ETesto());
        EXPECT_EQ(std::tuple(rs.Campo("Cmto").Testo(), rs.Campo("Nome").Testo(),
                             rs.Campo("Nazione").Testo().size()),
                  std::tuple("", "Mario Rossi                   ", 38u));
    }
    // No: a second chart of that name; from then on Yes rewrites the first in index order.
    EXPECT_EQ(salva(t, {Risposta::No}), EsitoSalvataggio::AggiuntoDoppio);
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{t2, t}));
    Tema t3 = t;
    t3.City = "Venezia";
    EXPECT_EQ(salva(t3, {Risposta::Si}), EsitoSalvataggio::Sovrascritto);
    // Another name is added without a question.
    const Tema altro = TemaDiProva("Anna Bianchi");
    EXPECT_EQ(salva(altro, {}), EsitoSalvataggio::Aggiunto);
    EXPECT_EQ(messaggi.registro.size(), 4u);
    EXPECT_EQ(Temi("Famiglia"), (std::vector<Tema>{altro, t3, t}));
}

TEST_F(ArchiviTest, ArchivioSparitoOFileMancante) {
    const Tema t = TemaDiProva("Mario Rossi");
    EXPECT_EQ(SalvaTema(fileDB, "Sparito", t, messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::NonSalvato);
    EXPECT_EQ(Mostrati(messaggi),
              (Riquadri{{"Vesmo - frmSalvoLyx.cmdSalva",
                         "L'Archivio  Sparito  non è più nel DataBase\n" + Trattini +
                             "\nThe archive is no longer in the database.\n"}}));
    // The name must be the table's own: a list always gives it so.
    CreaArchivio(fileDB, "Famiglia");
    EXPECT_EQ(SalvaTema(fileDB, "FAMIGLIA", t, messaggi, "x"), EsitoSalvataggio::NonSalvato);

    messaggi.registro.clear();
    EXPECT_EQ(SalvaTema((cartella / "manca.Mdb").string(), "Famiglia", t, messaggi,
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
    EXPECT_EQ(Mostrati(messaggi),
              (Riquadri{{"frmGesArchivi.cmdCrea: Nome Doppio",
                         "L'Archivio  FOO  Esiste già\nDigitare un nome diverso o annullare "}}));
    EXPECT_EQ(messaggi.registro[0].tipo, MessaggiRegistrati::Voce::Input);
    // An empty answer, or a cancelled box, ends it.
    messaggi.input = {std::string(""), std::nullopt};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), std::nullopt);
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), std::nullopt);
    // The answer is compared with the archives that follow, not with those passed.
    messaggi.input = {"zeta", "Omega"};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), "Omega");
    messaggi.input = {"alfa"};
    EXPECT_EQ(NomeNuovoArchivio("foo", elenco, messaggi), "alfa");
}

// One rule for an archive's name: a file's and a table's, at most 64 characters, none reserved.
TEST_F(ArchiviTest, UnaRegolaPerINomiDegliArchivi) {
    const std::string carattere = "il nome dell'archivio non può contenere il carattere ";
    const std::string controllo = "il nome dell'archivio non può contenere caratteri di controllo";
    const std::string buoni[] = {
        "Famiglia",
        "Temi Rossi (2024); DROP TABLE AllCity;--'",
        "Città d'arte",
        std::string(64, 'x'),
        "\xc3\xa8" + std::string(63, 'x'), // 64 characters, 65 bytes
        "sqlitemio",
        "NomiAlternativiMiei",
    };
    const std::pair<std::string, std::string> rifiutati[] = {
        {"", "nome dell'archivio vuoto"},
        {" Famiglia", "nome dell'archivio con spazi"},
        {std::string(65, 'x'), "nome dell'archivio troppo lungo: al massimo 64 caratteri"},
        {"../../x", carattere + "."},
        {"a/b", carattere + "/"},
        {"a\\b", carattere + "\\"},
        {"Temi \"Rossi\"", carattere + "\""},
        {"Temi [2024]", carattere + "["},
        {"a:b", carattere + ":"},
        {"a*b", carattere + "*"},
        {"a\nb", controllo},
        {"a\x7f", controllo},
        {"a\xff", "nome dell'archivio non è testo UTF-8 valido"},
        {"AllCity", "nome riservato a una tabella del database: AllCity"},
        {"nomialternativi", "nome riservato a una tabella del database: nomialternativi"},
        {"ZONEORARIE", "nome riservato"},
        {"sqlite_temi", "nome riservato"},
        {"TempMSysCopia", "nome riservato"},
    };
    for (const std::string& nome : buoni)
        EXPECT_TRUE(NomeArchivioValido(nome) && !ErroreNomeArchivio(nome)) << nome;
    for (const auto& [nome, perche] : rifiutati) {
        SCOPED_TRACE(nome.substr(0, 70));
        EXPECT_FALSE(NomeArchivioValido(nome));
        EXPECT_EQ(ErroreNomeArchivio(nome).value_or("").rfind(perche, 0), 0u);
    }

    // The create button: a name the rule refuses is told, nothing is created.
    const std::string strano = buoni[1];
    ASSERT_EQ(CreaArchivioUtente(fileDB, strano, {}, messaggi), strano);
    EXPECT_EQ(SalvaTema(fileDB, strano, TemaDiProva("A"), messaggi, "x"),
              EsitoSalvataggio::Aggiunto);
    EXPECT_TRUE(messaggi.registro.empty());
    const auto campiAllCity = Database(fileDB).Campi("AllCity");
    for (const std::string nome : {"AllCity", "../../x", "sqlite_temi", "NomiAlternativi"}) {
        messaggi.registro.clear();
        EXPECT_EQ(CreaArchivioUtente(fileDB, nome, ElencoArchivi(fileDB), messaggi), std::nullopt);
        EXPECT_EQ(Mostrati(messaggi),
                  (Riquadri{{"frmGesArchivi.cmdCrea: Nome Non Valido",
                             "Il nome  " + nome + "  non vale per un Archivio:\n" +
                                 *ErroreNomeArchivio(nome) + "\nArchivio non creato.\n" + Trattini +
                                 "\nThis name cannot name an archive.\n"}}));
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

// A locked, read-only or damaged file: the creation and the save say which, and write nothing.
TEST_F(ArchiviTest, DatabaseCheNonSiPuoScrivere) {
    const auto rifiutato = [&](const std::string& perche, const std::string& inglese) {
        EXPECT_EQ(CreaArchivioUtente(fileDB, "Amici", {"Famiglia"}, messaggi), std::nullopt);
        ASSERT_FALSE(messaggi.registro.empty());
        const auto [titolo, testo] = Mostrati(messaggi).back();
        EXPECT_EQ(titolo, "frmGesArchivi.cmdCrea: DataBase");
        EXPECT_EQ(testo, perche + ":\n" + fileDB + "\nArchivio non creato.\n" + Trattini + "\n" +
                             inglese + "\n");
    };
    {
        Database altro(fileDB);
        altro.Esegui("BEGIN EXCLUSIVE");
        altro.Esegui("DELETE FROM AllCity");
        rifiutato("Il DataBase è bloccato da un altro programma",
                  "The database is locked by another program.");
        altro.Esegui("ROLLBACK");
    }
    {
        test::FileSolaLettura solaLettura(fileDB); // not on every system for every user
        if (solaLettura.Riuscito())
            rifiutato("Il DataBase è di sola lettura", "The database is read-only.");
    }
    EXPECT_TRUE(ElencoArchivi(fileDB).empty());

    Riempi("Famiglia", {"Anna"});
    {
        Database db(fileDB);
        db.CreaTabella("Zavorra", {{"t", TipoCampo::Memo, 0, true}});
        for (int i = 0; i < 100; ++i)
            db.Esegui("INSERT INTO Zavorra (t) VALUES ('" + std::string(500, 'z') + "')");
    }
    test::DanneggiaUltimaPagina(fileDB);
    const std::string prima = Leggi(fileDB);
    messaggi.registro.clear();
    EXPECT_EQ(SalvaTema(fileDB, "Famiglia", TemaDiProva("B"), messaggi, "frmSalvoLyx.cmdSalva"),
              EsitoSalvataggio::NonSalvato);
    EXPECT_EQ(CreaArchivioUtente(fileDB, "Amici", {"Famiglia"}, messaggi), std::nullopt);
    ASSERT_EQ(messaggi.registro.size(), 2u);
    EXPECT_EQ(messaggi.registro[1].titolo, "frmGesArchivi.cmdCrea: DataBase");
    EXPECT_EQ(messaggi.registro[1].testo.rfind(
                  "Il file non è un DataBase valido o è danneggiato:\n" + fileDB, 0),
              0u);
    EXPECT_EQ(Leggi(fileDB), prima);
}

// A row deleted meanwhile: the first field read it, the rest come from the first row.
TEST_F(ArchiviTest, LetturaDiUnaRigaEliminata) {
    RiempiTemi("Famiglia", {TemaDiProva("Anna"), TemaDiProva("Bruno")});
    Database db(fileDB);
    Cursore rs(db, "Famiglia");
    rs.Index(IndiceArchivio);
    rs.MoveLast();
    rs.Delete();
    Tema letto, atteso = TemaDiProva("Anna");
    LeggiRecordTema(rs, letto);
    atteso.Nome = Tema().Nome;
    EXPECT_EQ(letto, atteso);
}

TEST_F(ArchiviTest, CaricaTemaXCalcolaIlTema) {
    Riempi("Famiglia", {"Mario Rossi"});
    Sessione s;
    s.TemaX.ZonaSF = "CET";
    s.PosX.Sole.Lo = 999;
    Database db(fileDB);
    Cursore rs(db, "Famiglia");
    CaricaTemaX(rs, s, messaggi);
    EXPECT_EQ(s.TemaX, TemaDiProva("Mario Rossi"));
    Case c;
    Posizioni attese;
    CastaTema(TemaDiProva("Mario Rossi"), c, attese, s.LunaGeo, messaggi);
    EXPECT_EQ(s.PosX, attese);
}
