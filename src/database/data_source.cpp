#include "database/data_source.h"

namespace tovera {
namespace {

constexpr std::u16string_view baseKey = u"HKEY_CURRENT_USER\\Software\\ODBC\\ODBC.INI\\";
constexpr std::u16string_view sourceItself = u"";
constexpr std::u16string_view engines = u"\\Engines";
constexpr std::u16string_view jetEngine = u"\\Engines\\Jet";

}  // namespace

void DataSource::declare() {
    writeIniEntries();
    listSource();
    createKeys();
    describeSource();
    describeEngine();
}

void DataSource::writeIniEntries() {
    auto iniFile = join(registry_.RetourneCheminWindows(), u"\\ODBC.INI");
    Bstr section = u"ODBC 32 bit Data Sources";
    Bstr driver = u"Microsoft Access Driver (*.mdb) (32 bit)";
    registry_.IniEcrire(section, name_, driver, iniFile);
    Bstr key = u"Driver32";
    driver = driverPath();
    registry_.IniEcrire(name_, key, driver, iniFile);
}

void DataSource::listSource() {
    Bstr key = join(baseKey, u"ODBC Data Sources");
    Bstr driver = u"Microsoft Access Driver (*.mdb)";
    registry_.EcrireREG_STRING(key, name_, driver);
}

void DataSource::createKeys() {
    for (const auto subKey : {sourceItself, engines, jetEngine}) {
        auto key = keyOfSource(subKey);
        registry_.CreerREG_Cle(key);
    }
}

void DataSource::describeSource() {
    writeText(keyOfSource(sourceItself), u"DBQ", file_);
    writeText(keyOfSource(sourceItself), u"Description", name_);
    writeText(keyOfSource(sourceItself), u"Driver", driverPath().view());
    writeText(keyOfSource(sourceItself), u"FIL", u"MS Access;");
    writeText(keyOfSource(sourceItself), u"UID", u"");
    writeNumber(keyOfSource(sourceItself), u"SafeTransactions", 0);
    writeNumber(keyOfSource(sourceItself), u"DriverId", 25);
}

void DataSource::describeEngine() {
    writeText(keyOfSource(jetEngine), u"ImplicitCommitSync", u"");
    writeText(keyOfSource(jetEngine), u"UserCommitSync", u"Yes");
    writeNumber(keyOfSource(jetEngine), u"MaxBufferSize", 2048);
    writeNumber(keyOfSource(jetEngine), u"PageTimeout", 5);
    writeNumber(keyOfSource(jetEngine), u"Threads", 3);
}

Bstr DataSource::keyOfSource(std::u16string_view subKey) const {
    return join(baseKey, name_, subKey);
}

Bstr DataSource::driverPath() {
    return join(registry_.RetourneCheminSystem(), u"\\odbcjt32.dll");
}

void DataSource::writeText(Bstr key, Bstr valueName, Bstr& text) {
    registry_.EcrireREG_STRING(key, valueName, text);
}

void DataSource::writeText(Bstr key, Bstr valueName, std::u16string_view text) {
    Bstr copy(text);
    writeText(std::move(key), std::move(valueName), copy);
}

void DataSource::writeNumber(Bstr key, Bstr valueName, I4 number) {
    registry_.EcrireREG_DWORD(key, valueName, number);
}

}  // namespace tovera
