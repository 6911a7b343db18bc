#!/bin/bash
# walk.sh <build folder>: the program's main job on a sample disc, on a virtual display. Leaves numbered pictures and the
# databases in a new folder.
set -eu
build=$1
folder=$(mktemp -d "${TMPDIR:-/tmp}/vinora-walk-XXXXXX")
disc=$folder/disc
mkdir -p "$disc/Документы/Письма" "$disc/Музыка" "$disc/Программы/Архиваторы" "$disc/Фото/2003" "$folder/program" \
    "$folder/pictures"

# A sample disc: some texts, an MP3 file with a tag in code page 1251, a hidden file.
printf 'Сборник к новому году.\r\n' >"$disc/readme.txt"
printf '[autorun]\r\nopen=setup.exe\r\n' >"$disc/autorun.inf"
for name in Бабушке Деду.Морозу В.редакцию; do printf 'Здравствуйте!\n' >"$disc/Документы/Письма/$name.txt"; done
for size in 12 480 1536 3072; do head -c $((size * 1024)) /dev/zero >"$disc/Программы/Архиваторы/pack$size.zip"; done
head -c 700000 /dev/zero >"$disc/Программы/setup.exe"
for n in 1 2 3 4 5 6; do head -c $((n * 90000)) /dev/zero >"$disc/Фото/2003/зима$n.jpg"; done
{
    head -c 500000 /dev/zero
    printf 'TAG'
    printf '%-30s%-30s' 'Снег' 'Оркестр' | iconv -f UTF-8 -t CP1251
} | head -c 500062 >"$disc/Музыка/01.mp3"
head -c 62 /dev/zero >>"$disc/Музыка/01.mp3"
genisoimage -quiet -V ZIMA2003 -J -R -input-charset utf-8 -o "$folder/zima2003.iso" "$disc" 2>/dev/null
rm -r "$disc"

# A film: a UDF disc. A record: three tracks of silence with CD-TEXT. A cover for it.
mkdir -p "$disc/VIDEO_TS"
for name in VIDEO_TS.IFO VIDEO_TS.BUP VTS_01_0.IFO; do head -c 12288 /dev/zero >"$disc/VIDEO_TS/$name"; done
genisoimage -quiet -V SKAZKA -udf -o "$folder/skazka.iso" "$disc" 2>/dev/null
rm -r "$disc"
truncate -s $((2352 * 75 * 60 * 9)) "$folder/orkestr.bin"
cat >"$folder/orkestr.cue" <<'SHEET'
TITLE "Снег"
PERFORMER "Оркестр"
FILE "orkestr.bin" BINARY
  TRACK 01 AUDIO
    INDEX 01 00:00:00
  TRACK 02 AUDIO
    INDEX 01 03:10:20
  TRACK 03 AUDIO
    INDEX 01 06:45:11
SHEET

cp "$build/vinora_walk" "$folder/program/vinora"
# A window manager gives the windows their frames and the keyboard.
walk() {
    QT_QPA_PLATFORM=xcb xvfb-run -a -s '-screen 0 1240x800x24' sh -c \
        'openbox >/dev/null 2>&1 & manager=$!; sleep 1; "$@"; code=$?; kill $manager; exit $code' \
        walk "$folder/program/vinora" "$folder/pictures$1" "${@:2}"
}
mkdir "$folder/pictures/next-day"
walk "" "$folder"
walk /next-day

echo
echo "Pictures:  $folder/pictures"
echo "Databases: $folder/program"
