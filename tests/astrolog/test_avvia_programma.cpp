// The detached start of a program: one that runs, one missing, and a command line too long.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "astrolog/qt/AvviaProgramma.h"

using namespace vesmo;

TEST(AvviaDistaccato, EsitiDellaPartenza) {
    QTemporaryDir cartella;
    ASSERT_TRUE(cartella.isValid());
    const std::string dir = cartella.path().toStdString();
    EXPECT_EQ(AvviaDistaccato("/bin/true", {"=X", "-zi", "Prova Nome", "Padova"}, dir),
              EsitoPartenza::Avviato);
    EXPECT_EQ(AvviaDistaccato(dir + "/astrolog", {"=X"}, dir), EsitoPartenza::Fallito);
    EXPECT_EQ(AvviaDistaccato("/bin/true", {"-zi", std::string(200000, 'N'), "P"}, dir),
              EsitoPartenza::RigaTroppoLunga);
}
