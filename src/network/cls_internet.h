#pragma once

#include "frame/component.h"
#include "platform/platform.h"
#include "platform/sequential_output.h"

namespace tovera {

/// Names and addresses of machines, mail, sharing, downloads, and the user.
class Cls_Internet {
  public:
    explicit Cls_Internet(Platform& platform = home()) : platform_(platform) {}

    /// The session of Lotus Notes that mail is sent with. It is made at the first mail, and kept; a host may
    /// hand in one of its own.
    ObjectRef NSession() const { return nSession_; }
    void setNSession(ObjectRef session) { nSession_ = std::move(session); }

    // Names and addresses. A failure gives the empty text, and a message box where one is told of below.

    /// The first address of this machine in dotted decimal. A box for each failure.
    Bstr GetIPAddress();
    /// The name of this machine. A box when it can't be had, none when there are no sockets.
    Bstr GetIPHostName();
    /// The name of the machine with this address in dotted form. A box for each failure.
    Bstr GetHostNameFromIP(Bstr sAddress);
    /// The first address of the machine with this name in dotted decimal. No box for a name that nobody
    /// knows.
    Bstr GetIPFromHostName(Bstr sHostName);

    // Adapters and resolvers.

    /// The hardware address of the first adapter: six groups of two hexadecimal digits with blanks between
    /// them, all of them 00 when there is none.
    Bstr GetMACAddress();
    /// The number of DNS servers, their addresses from index 0 on, and the first of them once more. A failure
    /// gives 0, an array of one empty text, and leaves the first text as it was.
    I4 GetDNSServers(Bstr& sCurrentDNSServer, StringArray& dnssvr);

    // Mail.

    /// Sends a mail through Lotus Notes, with a file where one is named. A message box tells each failure,
    /// and with `AccuseMsgbox` exactly True the success.
    void EcrireEmail_LotusNotes(Bstr& EmailDest, Bstr& strSujet, Bstr& Messagetext, Bstr& Attachment,
                                const VariantBool& AccuseMsgbox);
    /// Writes a draft into the file `temp.eml` of the component's folder and has it opened. False without an
    /// addressee: the file then has the sender alone and isn't opened. Errors of the file operation are
    /// raised.
    void EcrireEmail_OutlookExpress(const Bstr& MsgFrom, const Bstr& MsgTo, const Bstr& MsgCC,
                                    const Bstr& MsgBCC, const Bstr& MsgSubject, const I2& MsgPriority,
                                    const Bstr& MsgMessage, Result<VariantBool>& opened);

    // Sharing, download, user.

    /// Shares a folder under a name; `sServer` is empty or a machine's name behind two backslashes. 0 when it
    /// is shared, 2118 when the name is taken, else another status.
    I4 PartageRep(const Bstr& sServer, const Bstr& sSharePath, const Bstr& sShareName,
                  const Bstr& sShareRemark, const Bstr& sSharePw);
    /// Fetches a URL into a file, and comes back when that is done.
    VariantBool TelechargeFichier(Bstr sURL, Bstr sLocalFile);
    /// The name of the user who is logged on.
    Bstr GetUserName();
    /// Opens a URL, or a file, with the machine's program for it. Nothing is told when there is none. The URL
    /// comes back through the ANSI code page.
    void ExecuterURL(Bstr& strURL, const I4& hwnd);

  private:
    template <class Work>
    Bstr inSession(Work work);
    VariantBool OpenSocketSession();
    VariantBool OpenCheckedSocketSession();
    void CloseSocketSession();
    I4 lastSocketError();
    Bstr AddressBytesToText(std::u16string_view address);
    void showError(const Bstr& text);

    Variant EnsureNotesSession();
    std::unique_ptr<OutputFile> OpenDraftFile(const Bstr& path);
    void OpenWithShell(const Bstr& verb, const Bstr& file, const Bstr& parameters, const Bstr& folder,
                       I4 show);

    Platform& platform_;
    ObjectRef nSession_;
};

}  // namespace tovera
