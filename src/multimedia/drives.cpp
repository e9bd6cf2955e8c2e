#include "platform/drives.h"

#include "multimedia/cls_multimedia.h"

namespace tovera {
namespace {

bool isDriveLetter(const Bstr& text) {
    return text.length() == 1 && !(text[0] >= u'0' && text[0] <= u'9');
}

}  // namespace

I4 Cls_Multimedia::NoSerieDisque(Bstr& strDrive) {
    I4 serial = 0;
    I4 longestName = 0;
    I4 flags = 0;
    platform_.call(&Drives::GetVolumeInformationA, strDrive, serial, longestName, flags);
    return serial;
}

I4 Cls_Multimedia::TypePeripherique(const Bstr& strLettreDrive) {
    if (!isDriveLetter(strLettreDrive)) return driveTypes::unknown;
    return platform_.call(&Drives::GetDriveTypeA, join(strLettreDrive, u":\\"));
}

VariantBool Cls_Multimedia::estDuType(const Bstr& lettre, I4 type) {
    return VariantBool(TypePeripherique(lettre) == type);
}

VariantBool Cls_Multimedia::EstDisquette(const Bstr& strLettreDrive) {
    return estDuType(strLettreDrive, driveTypes::removable);
}

VariantBool Cls_Multimedia::EstDisqueDur(const Bstr& strLettreDrive) {
    return estDuType(strLettreDrive, driveTypes::fixed);
}

VariantBool Cls_Multimedia::EstDisqueReseau(const Bstr& strLettreDrive) {
    return estDuType(strLettreDrive, driveTypes::remote);
}

VariantBool Cls_Multimedia::EstCDROM(const Bstr& strLettreDrive) {
    return estDuType(strLettreDrive, driveTypes::cdRom);
}

}  // namespace tovera
