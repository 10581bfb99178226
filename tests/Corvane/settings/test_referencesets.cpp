#include "Corvane/settings/referencesets.h"

#include <QTest>

#include <iterator>

namespace {

const ReferenceSet kExpected[] = {
    {"-13244065", "Bergl_Z", "Berglund for adults, Zapletal for children"},
    {"-344530043", "Brazil", "Brazilian reference values"},
    {"36662987", "China", "Chinese reference values"},
    {"-176248180", "Cra_Knu", "Crapo for adults, Knudson for children"},
    {"-13244054", "ECSC_IGiChP", "Polish reference values: ECSC for adults, IGiChP for children"},
    {"1017560561", "ECSC_P", "European Coal and Steel Community for adults, Polgar for children"},
    {"-13244066", "ECSC_PZ",
     "European Coal and Steel Community for adults, Polgar and partly Zapletal for children"},
    {"-13244058", "ECSC_Qua", "European Coal and Steel Community for adults, Quanjer for children"},
    {"-13244057", "ECSC_Qua_AT",
     "European Coal and Steel Community for adults, Quanjer for Austrian children"},
    {"-13244056", "ECSC_Qua_ES",
     "European Coal and Steel Community for adults, Quanjer for Spanish children"},
    {"-13244055", "ECSC_Qua_GB",
     "European Coal and Steel Community for adults, Quanjer for English children"},
    {"-1601507996", "ECSC_Z", "European Coal and Steel Community for adults, Zapletal for children"},
    {"-73344080", "Forche2", "Austrian reference values: Forche for adults and children"},
    {"-13244053", "Garcia-Rio_Roca_SEP",
     "Spanish reference values: Garcia-Rio for elderly, Roca for adults, SEPAR for children"},
    {"2012", "GLI2012", "Global Lung Function Initiative reference values for adults and children"},
    {"20121", "GLI2012_African_American",
     "Global Lung Function Initiative reference values for African American adults and children"},
    {"20123", "GLI2012_Caucasian",
     "Global Lung Function Initiative reference values for Caucasian adults and children"},
    {"201213", "GLI2012_North_East_Asians",
     "Global Lung Function Initiative reference values for North East Asians adults and children"},
    {"201214", "GLI2012_South_East_Asians",
     "Global Lung Function Initiative reference values for South East Asians adults and children"},
    {"201215", "GLI2012_Other/mixed",
     "Global Lung Function Initiative reference values for Other/mixed adults and children"},
    {"-13244062", "Gulsvik_Z", "Norwegian reference values: Gulsvik for adults, Zapletal for children"},
    {"-13244059", "Hedenstrom_Sol", "Swedish reference values: Hedenstrom for adults, Solymar for children"},
    {"-13244060", "Hedenstrom_Z", " Swedish reference values: Hedenstrom for adults, Zapletal for children"},
    {"-13244063", "Japan", " Japanese reference values"},
    {"-13244048", "Jindal", "Indian reference values: Jindal for adults and adolescents"},
    {"2015", "Kainu_Koillinen", "Finnish reference values: Kainu for adults and Koillinen for children"},
    {"-13244049", "Klement", " Russian reference values: Klement for adults and children"},
    {"936007544", "Knudson", " Knudson for adults and children"},
    {"-13244051", "Langhammer_Z", "Norwegian reference values: Langhammer for adults, Zapletal for children"},
    {"-13244061", "NHANES III_W",
     "NHANES III (Hankinson) for 8-80-year-olds. Wang for children under 8 years"},
    {"-132440611", "NHANES III_W_African_American",
     "NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years African American "
     "ethnics"},
    {"-1324406112", "NHANES III_W_Mexican_American",
     "NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years Mexican American "
     "ethnics"},
    {"-1324406115", "NHANES III_W_Other",
     "NHANES III (Hankinson) for 8-80-year-olds and Wang for children under 8 years other ethnics"},
    {"-13244052", "SEPAR", "Spanish reference values: SEPAR for adults and children"},
    {"-13244046", "Udwadia", "Indian reference values: Udwadia for adults and adolescents"},
    {"-13244047", "Vijayan", "Indian reference values: Vijayan for adults and adolescents"},
    {"-13244050", "Viljanen_Kiv", "Estonian reference values: Viljanen for adults, Kivastik for children"},
    {"1857262229", "Viljanen_Koi", "Finnish reference values: Viljanen for adults, Koillinen for children"},
};

}  // namespace

/// The reference sets that a site has without any plug-in.
class TestReferenceSets : public QObject
{
    Q_OBJECT

private slots:
    void everyBuiltInSetHasItsIdNameAndDescription_data();
    void everyBuiltInSetHasItsIdNameAndDescription();
    void thereAreNoOtherSets();
};

void TestReferenceSets::everyBuiltInSetHasItsIdNameAndDescription_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < static_cast<int>(std::size(kExpected)); ++row)
        QTest::newRow(kExpected[row].name) << row;
}

void TestReferenceSets::everyBuiltInSetHasItsIdNameAndDescription()
{
    QFETCH(int, row);
    const ReferenceSet set = builtInReferenceSets().value(row);
    QCOMPARE(QString(set.id), QString(kExpected[row].id));
    QCOMPARE(QString(set.name), QString(kExpected[row].name));
    QCOMPARE(QString(set.description), QString(kExpected[row].description));
}

void TestReferenceSets::thereAreNoOtherSets()
{
    QCOMPARE(std::size(kExpected), std::size_t(38));
    QCOMPARE(builtInReferenceSets().size(), 38);
}

QTEST_GUILESS_MAIN(TestReferenceSets)
#include "test_referencesets.moc"
