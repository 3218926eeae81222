#!/usr/bin/env bash
# Makes a PDF queue of CUPS the default printer, so that the print test goes
# through a real printer: starts the scheduler when it is not running (directly
# when there is no running systemd), adds the queue "SidekinPDF" and points
# cups-pdf at one folder. Usage: scripts/cups-pdf-queue.sh [output folder]
# (default $SIDEKIN_PRINT_OUT, else /var/spool/sidekin-pdf). Cheap to repeat.
set -euo pipefail
out=${1:-${SIDEKIN_PRINT_OUT:-/var/spool/sidekin-pdf}}
queue=SidekinPDF
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"

running() { lpstat -r 2>/dev/null | grep -q "is running"; }

$sudo mkdir -p "$out"
$sudo chmod 1777 "$out"
conf=/etc/cups/cups-pdf.conf
if ! grep -qx "Out $out" "$conf"; then
    $sudo sed -i -E '/^#?[[:space:]]*Out[[:space:]]/d' "$conf"
    echo "Out $out" | $sudo tee -a "$conf" >/dev/null
fi

if ! running; then
    if [ "$(systemctl is-system-running 2>/dev/null || true)" = running ] ||
       [ "$(systemctl is-system-running 2>/dev/null || true)" = degraded ]; then
        $sudo systemctl start cups
    else
        $sudo cupsd
    fi
    for _ in $(seq 50); do running && break; sleep 0.2; done
fi
running || { echo "cups-pdf-queue: the CUPS scheduler did not start" >&2; exit 1; }

ppd=$(ls /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd 2>/dev/null || true)
if [ -z "$ppd" ]; then
    echo "cups-pdf-queue: no cups-pdf PPD; is printer-driver-cups-pdf installed?" >&2
    exit 1
fi
if ! lpstat -p "$queue" >/dev/null 2>&1; then
    $sudo lpadmin -p "$queue" -v cups-pdf:/ -P "$ppd" -E 2>/dev/null
fi
# Poppler's renderer keeps the text of the PDF readable through the PostScript step.
$sudo lpadmin -p "$queue" -o pdftops-renderer-default=pdftocairo
$sudo cupsenable "$queue"
$sudo cupsaccept "$queue"
$sudo lpadmin -d "$queue"
echo "CUPS: default printer $queue writes PDF files into $out"
