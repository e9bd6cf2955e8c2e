#!/usr/bin/env bash
# scripts/check-libreoffice: builds the extension for LibreOffice against the root of scripts/wine-root, installs it there
# as an unprivileged user with a home of its own, and runs the checks of tests/libreoffice in LibreOffice Basic, without
# windows. What they write lies in that home, and goes with it.
set -euo pipefail
cd "$(dirname "$0")/.."

status=0
root=$(scripts/wine-root 2>&1) || status=$?
if ((status == 3)); then
    echo "left out: the checks in LibreOffice, for ${root#wine-root: }"
    exit 0
fi
((status == 0)) || { echo "$root" >&2 && exit 1; }

cmake --preset linux -DTOVERA_OFFICE_ROOT="$root" >/dev/null
cmake --build build/linux --target tovera_program tovera_oxt tovera_oxt_probe basic_steps

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
cp build/linux/tovera.oxt build/linux/libreoffice/probe.oxt "$home"
examples/libreoffice/make-invoice "$home/invoice"
readonly nobody=65534

# office COMMAND...: runs COMMAND in the root, as nobody.
office() {
    chown -R "$nobody:$nobody" "$home"
    scripts/wine-root setpriv --reuid="$nobody" --regid="$nobody" --clear-groups env -i -C "/host$home" HOME="/host$home" \
        PATH=/usr/bin:/bin LC_ALL=C.UTF-8 TOVERA_RESULTS="/host$home/results" "$@" 2> >(grep -v javaldx >&2)
}

# install_basic USER FILE...: modules as the library of a user.
install_basic() {
    local library=$1/basic/Standard file name
    shift
    for file in "$@"; do
        name=$(basename "$file" .bas)
        {
            echo '<?xml version="1.0" encoding="UTF-8"?>'
            echo '<script:module xmlns:script="http://openoffice.org/2000/script" script:language="StarBasic"'
            printf ' script:name="%s">' "$name"
            sed 's/&/\&amp;/g; s/</\&lt;/g; s/>/\&gt;/g' "$file"
            echo '</script:module>'
        } >"$library/$name.xba"
    done
    {
        echo '<?xml version="1.0" encoding="UTF-8"?>'
        echo '<library:library xmlns:library="http://openoffice.org/2000/library" library:name="Standard"'
        echo ' library:readonly="false" library:passwordprotected="false">'
        for file in "$@"; do echo "<library:element library:name=\"$(basename "$file" .bas)\"/>"; done
        echo '</library:library>'
    } >"$library/script.xlb"
}

# new_user EXTENSION...: a user's folder of LibreOffice with extensions in it, in the home.
new_user() {
    rm -rf "$home/user"
    office soffice "-env:UserInstallation=file:///host$home/user" --headless --norestore --nologo --terminate_after_init
    office unopkg add "-env:UserInstallation=file:///host$home/user" "$@"
}

# run MACRO: runs a macro of that user.
run() {
    office timeout --kill-after=5 300 soffice "-env:UserInstallation=file:///host$home/user" --headless --norestore \
        --nologo "macro:///Standard.$1"
}


echo "the checks in Basic"
new_user tovera.oxt probe.oxt
install_basic "$home/user/user" tests/libreoffice/bench/Bench.bas
run Bench.Main; run Bench.Main; run Bench.Main
cat "$home/results"
