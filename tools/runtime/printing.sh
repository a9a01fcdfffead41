#!/usr/bin/env bash
# printing.sh FOLDER start|stop: a print service of an instance's own, on a socket in FOLDER, with
# one PostScript queue "PDF" whose jobs become FOLDER/jobs/NUMBER-TITLE.pdf.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
folder=$(realpath -m "$1")
if [ "$2" = stop ]; then
    [ ! -s "$folder/cupsd.pid" ] || kill "$(<"$folder/cupsd.pid")" 2>/dev/null || true
    exit 0
fi
mkdir -p "$folder"/{etc/ppd,bin/backend,bin/filter,log,cache,spool/tmp,jobs,state}
ln -sfn /usr/lib/cups/daemon "$folder/bin/daemon"
cat >"$folder/bin/backend/pdfjobs" <<BACKEND
#!/bin/bash
# arguments: job user title copies options [file]
[ \$# = 0 ] && { echo 'direct pdfjobs "Unknown" "PDF jobs"'; exit 0; }
title=\$(printf %s "\$3" | tr -c 'A-Za-z0-9._-' '_')
job="$folder/jobs/\$(printf %04d "\$1")-\$title"
umask 022
# the fonts name the glyph of both hyphens by the soft one, for which no one searches
LC_ALL=C sed 's,/uni00AD\>,/hyphen,g' \${6:+"\$6"} >"\$job.ps.part"
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pdfwrite -sOutputFile="\$job.pdf.part" "\$job.ps.part" </dev/null >&2
mv "\$job.ps.part" "\$job.ps" && mv "\$job.pdf.part" "\$job.pdf"
BACKEND
chmod 755 "$folder/bin/backend/pdfjobs"
user=$(id -un) group=$(id -gn) as_user=()
if [ "$(id -u)" = 0 ]; then # the service refuses to serve as root
    user=nobody group=nogroup
    as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
fi
cat >"$folder/etc/cups-files.conf" <<CONF
ServerRoot $folder/etc
ServerBin $folder/bin
DataDir /usr/share/cups
AccessLog $folder/log/access_log
ErrorLog $folder/log/error_log
PageLog $folder/log/page_log
CacheDir $folder/cache
StateDir $folder/state
RequestRoot $folder/spool
TempDir $folder/spool/tmp
DocumentRoot $folder/state
FileDevice Yes
SystemGroup $group
User $user
Group $group
Sandboxing off
CONF
cat >"$folder/etc/cupsd.conf" <<CONF
Listen $folder/cups.sock
LogLevel warn
Browsing Off
WebInterface No
DefaultAuthType None
PreserveJobFiles No
PreserveJobHistory No
MaxJobs 0
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
CONF
cat >"$folder/etc/printers.conf" <<CONF
<DefaultPrinter PDF>
PrinterId 1
Info PDF
MakeModel Test PostScript Printer
DeviceURI pdfjobs:/
State Idle
Accepting Yes
Shared No
JobSheets none none
OpPolicy default
ErrorPolicy abort-job
</DefaultPrinter>
CONF
python3 "$here/make_ppd.py" "$folder/etc/ppd/PDF.ppd"
if [ ${#as_user[@]} -gt 0 ]; then
    chown -R nobody:nogroup "$folder"
    # the unprivileged service must reach its own folder
    path=$folder
    while [ "$path" != / ]; do chmod o+x "$path"; path=$(dirname "$path"); done
fi
rm -f "$folder/cups.sock"
"${as_user[@]}" /usr/sbin/cupsd -c "$folder/etc/cupsd.conf" -s "$folder/etc/cups-files.conf" -f \
    >>"$folder/log/cupsd.out" 2>&1 </dev/null &
echo $! >"$folder/cupsd.pid"
for _ in $(seq 200); do [ ! -S "$folder/cups.sock" ] || exit 0; sleep 0.05; done
echo "printing.sh: the print service did not start; see $folder/log" >&2
exit 1
