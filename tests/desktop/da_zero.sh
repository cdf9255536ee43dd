#!/usr/bin/env bash
# A joint from nothing to a verified report, with a real pointer and keyboard: bolts by proposal, one
# load set, verification, save, close. Needs Xvfb and xdotool; without them it is skipped (exit 77).
#   da_zero.sh TK07 TK07-GUI [PICTURES]
set -uo pipefail
tk07=$1 gui=$2 foto=${3:-}
command -v Xvfb > /dev/null && command -v xdotool > /dev/null || exit 77

cartella=$(mktemp -d)
# The server picks a display that is free and says which; another that starts at the same moment may
# take it first, then it is asked again.
x= schermo=
for _ in 1 2 3; do
    : > "$cartella/schermo"
    Xvfb -displayfd 1 -screen 0 1280x800x24 > "$cartella/schermo" 2> /dev/null &
    x=$!
    for _ in $(seq 100); do [[ -s $cartella/schermo ]] && break; sleep 0.1; done
    schermo=:$(cat "$cartella/schermo")
    for _ in $(seq 50); do
        DISPLAY=$schermo timeout 2 xdotool getmouselocation > /dev/null 2>&1 && break 2
        kill -0 "$x" 2> /dev/null || break
        sleep 0.1
    done
    kill "$x" 2> /dev/null
done
g=
fine() {
    [[ -n $g ]] && kill "$g" 2> /dev/null
    kill "$x" 2> /dev/null
    rm -rf "$cartella"
}
trap fine EXIT
# What went wrong, with what the window's program itself said of it (a sanitizer's account, for one).
guasto() {
    echo "da_zero: $*" >&2
    [[ -f $cartella/detto ]] && head -n 100 "$cartella/detto" >&2
    scatta guasto
    exit 1
}
scatta() { [[ -n $foto ]] && timeout 5 import -window root "$foto/da_zero_$1.png" 2> /dev/null; true; }
export DISPLAY=$schermo
unset QT_QPA_PLATFORM

radice=$cartella/albero
"$tk07" inizializza "$radice" > /dev/null || guasto "albero non fatto"
inizio=$(date +%s%N)
"$gui" --diroot "$radice" > "$cartella/detto" 2>&1 &
g=$!
for _ in $(seq 500); do
    timeout 2 xdotool search --onlyvisible --name "TK07 - NODO" > /dev/null 2>&1 && break
    sleep 0.01
done
echo "finestra dopo $((($(date +%s%N) - inizio) / 1000000)) ms"
finestra() { timeout 10 xdotool search --sync --onlyvisible --name "$1" 2> /dev/null | tail -1; }
w=$(finestra "TK07 - NODO")
[[ -n $w ]] || guasto "nessuna finestra"
timeout 5 xdotool windowmove "$w" 0 0 windowsize "$w" 1280 800
sleep 0.4
clic() { timeout 5 xdotool mousemove --window "$1" "$2" "$3" click 1; sleep 0.25; }
scrivi() { timeout 5 xdotool key ctrl+a type --delay 8 "$1"; sleep 0.1; }

clic "$w" 220 62 # page "Piastre, nervature, saldature"
clic "$w" 180 533 # side of the welds S1, then S2
scrivi 6
timeout 5 xdotool key Tab
scrivi 2
scatta saldature
clic "$w" 353 62 # page "Bulloni"
clic "$w" 160 117 # "Definisci bulloni"
b=$(finestra "Definisci bulloni")
[[ -n $b ]] || guasto "finestra dei bulloni non aperta"
scatta bulloni
clic "$b" 209 582 # diameter of the proposal
scrivi 12
clic "$b" 382 582 # "Proponi"
clic "$b" 248 708 # "OK"
clic "$w" 437 62 # page "Sollecitazioni"
clic "$w" 88 302 # "Aggiungi"
clic "$w" 273 141 # Ty of the first row
scrivi 2000
timeout 5 xdotool key Return
sleep 0.2
scatta carichi
timeout 5 xdotool key F5 # "Verifica"
relazione=$radice/lavori/esempi/RelSLU_TK07_Nuovo.txt
for _ in $(seq 20); do
    sleep 0.5
    timeout 5 xdotool key Return # a box on the spacing rules, if there is one
    [[ -f $relazione ]] && break
done
sleep 0.5
scatta verifica
[[ -f $relazione ]] || guasto "relazione non scritta"
grep -q "^NODO VERIFICATO IN BASE ALLA COMB. DI SOLLECITAZIONI AGENTI Soll 1" "$relazione" ||
    guasto "nodo non verificato"
grep -q "Ty = 2000" "$relazione" || guasto "il carico scritto non è nella relazione"
timeout 5 xdotool key ctrl+s # "Salva": a joint that no file holds yet is asked about
sleep 0.5
scatta domanda
timeout 5 xdotool key alt+s
for _ in $(seq 40); do [[ -f $radice/lavori/esempi/Nuovo.tk7 ]] && break; sleep 0.1; done
[[ -f $radice/lavori/esempi/Nuovo.tk7 ]] || guasto "nodo non salvato"
clic "$w" 437 62 # back to the window: no window manager gives it the keys again
timeout 5 xdotool key ctrl+q # "Chiudi"
for _ in $(seq 100); do kill -0 "$g" 2> /dev/null || break; sleep 0.1; done
kill -0 "$g" 2> /dev/null && guasto "il programma non si è chiuso"
wait "$g"
esito=$?
g=
[[ $esito -eq 0 ]] || guasto "uscita $esito"
ls "$radice"/temp/TK07_auto_* > /dev/null 2>&1 || guasto "nessuna copia automatica dopo la chiusura"
echo "verificato, salvato, chiuso"
