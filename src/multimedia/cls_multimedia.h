#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// The CD tray, sound files, the volume control, drives and the size of the screen.
///
/// Sound goes through commands in words of the platform's Media Control Interface (MCI), whose answers nobody
/// looks at: a command that doesn't fit is refused there in silence. The MP3 methods share one device of the
/// process, whichever object opened it.
class Cls_Multimedia {
  public:
    explicit Cls_Multimedia(Platform& platform = home()) : platform_(platform) {}

    // The CD tray. Both come back when the tray has moved.

    /// Closes the tray of the CD drive. Without a drive nothing happens.
    void FermerCD();
    /// Opens the tray of the CD drive. A drive that another program is using stays closed. On Linux a disc
    /// that is mounted is unmounted before.
    void OuvrirCD();

    // Sound.

    /// Plays a sound file and comes back at once. Where it can't be played, a message box says so.
    void JouerUnWav(const Bstr& Fichier);
    /// Opens the volume control: the large one for True, else the small one of the tray. Error 53 where there
    /// is none.
    void ReglageVolume(Optional<VariantBool> Grand);
    /// Whether there is a device that sound can come out of.
    VariantBool CarteSonPresente();
    /// Opens a sound file, and plays it for True. A file that is already open stays the open one. A name with
    /// a blank in it is refused in silence.
    void OuvrirMP3(const Bstr& strNomFichier, Optional<VariantBool> blnJouerFichier);
    /// Plays the open file, from where it was paused.
    void JouerMP3();
    /// Stops the open file and closes it.
    void StopMP3();
    /// Stops the open file, which stays open: playing goes on from there.
    void PauseMP3();

    // Files and drives.

    /// The sample rate of a WAV file in 16 bits with a sign: 44100 reads as -21436. 0 for a name that doesn't
    /// end in "wav", and for a file of less than 25 bytes. A missing file is made, empty; errors of the file
    /// operation are raised: 70 for a file that can't be opened, 76 for a missing folder.
    I2 FrequenceFichierWAV(const Bstr& CheminFichierWAV);
    /// The serial number of the volume with this root path (`C:\`); 0 where there is none. The path comes
    /// back through the ANSI code page.
    I4 NoSerieDisque(Bstr& strDrive);
    /// Whether the drive with this letter is a CD drive. Anything but one character that is no digit gives
    /// False, here and in the three next.
    VariantBool EstCDROM(const Bstr& strLettreDrive);
    /// Whether the drive with this letter is a hard disk.
    VariantBool EstDisqueDur(const Bstr& strLettreDrive);
    /// Whether the drive with this letter is one of the network.
    VariantBool EstDisqueReseau(const Bstr& strLettreDrive);
    /// Whether the drive with this letter is removable.
    VariantBool EstDisquette(const Bstr& strLettreDrive);
    /// The type of the drive with this letter: 0 unknown, or no letter; 1 no such drive; 2 removable; 3 hard
    /// disk; 4 network; 5 CD; 6 RAM disk.
    I4 TypePeripherique(const Bstr& strLettreDrive);

    // The screen.

    /// The width of the screen in pixels; 0 without a screen. Error 6 above 32767.
    I2 ResolutionEcranX();
    /// The height of the screen in pixels; 0 without a screen. Error 6 above 32767.
    I2 ResolutionEcranY();

  private:
    void envoyer(const Bstr& commande, const Bstr& reponse);
    VariantBool estDuType(const Bstr& lettre, I4 type);

    Platform& platform_;
};

}  // namespace tovera
