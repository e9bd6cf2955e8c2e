#!/usr/bin/env bash
# The key pairs of Cls_Cryptage outside of it. They are ordinary PKCS #8 files, which openssl reads.
#   keys.sh check                      looks whether both pairs are whole
#   keys.sh backup FILE                keeps both pairs in FILE, under a passphrase that is asked for
#   keys.sh restore FILE               takes them back, on this or on another machine, where there are none
#   keys.sh sign TEXTFILE              signs a text, and prints the signature as base64
#   keys.sh verify TEXTFILE BASE64     verifies such a signature with openssl alone
set -euo pipefail

keys=${XDG_DATA_HOME:-$HOME/.local/share}/tovera/keys

# The bytes of a text as the program prints it: one character a byte of the ANSI code page.
ansi_bytes() {
    iconv -f UTF-8 -t UTF-16LE | od -An -v -tu2 -w2 | awk '
        BEGIN {
            split("8364 129 8218 402 8222 8230 8224 8225 710 8240 352 8249 338 141 381 143 144 8216 8217 8220 8221 " \
                  "8226 8211 8212 732 8482 353 8250 339 157 382 376", upper)
            for (i in upper) byte[upper[i]] = 127 + i
        }
        { printf "\\x%02x", $1 in byte ? byte[$1] : $1 }' | xargs -0 printf '%b'
}
# openssl has the most significant byte first, the class the least significant.
reversed() { od -An -v -tx1 -w1 | tac | tr -d ' \n' | sed 's/../\\x&/g' | xargs -0 printf '%b'; }

case ${1-} in
    check)
        for pair in signature exchange; do openssl pkey -in "$keys/$pair.pem" -check -noout; done
        ;;
    backup)
        (umask 077 && tar -C "$keys" -c signature.pem exchange.pem | openssl enc -aes-256-cbc -pbkdf2 ${PASSPHRASE:+-pass env:PASSPHRASE} -out "$2")
        ;;
    restore)
        mkdir -p -m 700 "$keys"
        openssl enc -d -aes-256-cbc -pbkdf2 ${PASSPHRASE:+-pass env:PASSPHRASE} -in "$2" | tar -C "$keys" -x --keep-old-files
        ;;
    sign)
        text=$(sed 's/"/""/g' "$2")
        ${TOVERA:-tovera} Cls_Cryptage "InBuffer=\"$text\"" Sign Signature 2>/dev/null | head -c -1 | ansi_bytes | base64 -w0
        ;;
    verify)
        openssl dgst -md5 -verify <(openssl pkey -in "$keys/signature.pem" -pubout) \
            -signature <(base64 -d <<<"$3" | reversed) <(head -c "$(($(wc -c <"$2") - 1))" "$2" | ansi_bytes)
        ;;
    *)
        sed -n '2,7s/^# \{0,3\}//p' "$0" >&2
        exit 2
        ;;
esac
