# Where a hand finds the controls, in pixels of their windows: what `press` and `fill` know by name. The level
# editor's stand without their screen, those of the others behind its name. Part of desktop.sh.

declare -A places
while read -r x y name; do places[$name]="$x $y"; done << 'END'
208 26   Create Set
286 26   Save Level
372 26   Save As Level
453 26   Variables
520 26   View Text
600 26   World Editor
708 26   Exit
300 62   File Name
652 94   Interactive Layer
652 114  Foreground Layer
652 134  All Layers
775 74   Tiles
775 94   Bad Guys
775 114  Bad Guy List
732 211  X of the First Bad Guy
826 196  Palette's Arrow Up
826 464  Palette's Arrow Down
826 440  Palette's Page Down
779 546  Blank Tile
612 604  Map's Arrow Right
500 604  Map's Page Right
19 634   Grid
89 634   Auto
159 634  Show Reset Points
525 634  Set Nuk Start Pos.
365 634  A Blank Spot
120 23   Set: Title
120 51   Set: Description
308 87   Set: Create
380 77   Variables: Author
120 104  Variables: Name
120 131  Variables: Width
120 158  Variables: Start Pos X
120 185  Variables: BkGnd
400 185  Variables: Music
120 293  Variables: Bkg Speed
400 320  Variables: Gravity
400 347  Variables: Theme
98 374   Variables: Back Scrolling
34 480   Variables: Add Ending
34 508   Variables: Add Igloo
502 551  Variables: Close
60 24    Background: First File
416 281  Background: OK
388 104  BadGuy: X's Arrow Right
42 163   BadGuy: Stay on Platform
351 163  BadGuy: Close
705 557  Text: Close
62 68    File Dialog: First of the List
23 29    World: New
60 29    World: Open
97 29    World: Save
130 29   World: Save As
205 29   World: Exit
672 77   World: Level Point Editor
672 97   World: All Layers
672 189  World: Auto Complete
300 70   World: File Name
642 590  World: Map's Arrow Down
837 558  World: Palette's Arrow Down
700 560  World: A Blank Spot
120 52   Properties: Name
120 106  Properties: Comment
458 132  Properties: Width's Arrow Right
120 187  Properties: Start Pos X
120 214  Properties: Start Pos Y
421 245  Properties: OK
120 52   Link: Type
120 79   Link: Name
120 133  Link: Message
168 215  Link: DestX
168 243  Link: DestY
367 289  Link: OK
100 51   Link Type: Map Message
100 79   Link Type: Teleport
END

to() {  # NAME: moves the mouse there
    [[ -n ${places[$1]-} ]] || fail "no place is called \"$1\""
    # shellcheck disable=SC2086  # x and y
    at ${places[$1]}
}
press() { to "$1"; xdotool click "${2:-1}"; settle; }  # NAME [BUTTON]
fill() { press "$1"; keys ctrl+a; text "$2"; }         # NAME TEXT: a text box

# What a column and row in view is: a cell of the level's map and of its palette, and the same in the world editor.
cell() { click $((26 + 34 * $1)) $((96 + 34 * $2)) "${3:-1}"; }
palette() { click $((686 + 36 * $1)) $((204 + 36 * $2)); }
world_cell() { click $((28 + 34 * $1)) $((106 + 34 * $2)); }
world_palette() { click $((700 + 35 * $1)) $((270 + 35 * $2)); }

kind_of_bad_guy() { click 680 $((206 + 39 * $1)); }  # from 0
bad_guy_at() { click $((26 + $1 * 34 / 32)) $((96 + $2)) "${3:-1}"; }  # in level pixels
