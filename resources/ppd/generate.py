#!/usr/bin/env python3
"""Writes the sample PPDs of the invented Example card printers into this folder.

`generate.py` writes them, `generate.py --check` only tells whether they are up to date.

Every text is a tuple in the order of LANGUAGES; English comes first and is the PPD's own language.
"""

import dataclasses
import pathlib
import sys

LANGUAGES = ("en", "de", "fr", "ja")

SIDES = {
    "front": ("Front", "Vorderseite", "recto", "表面"),
    "back": ("Back", "Rückseite", "verso", "裏面"),
}


@dataclasses.dataclass
class Option:
    keyword: str
    title: tuple
    choices: list  # (keyword, text); an area option has none but Default
    default: str
    has_area: bool = False  # one more value, a typed rectangle


def of_side(side, texts):
    return tuple(text.format(side=name) for text, name in zip(texts, SIDES[side]))


# Choices. Panels rely on three positions, counted from 0: ribbon 3 has a resin panel, resin 11 and
# peel-off 12 use the typed areas.

RIBBONS = [
    ("None", ("No Printing", "Nicht drucken", "Pas d'impression", "印刷しない")),
    ("YMC", ("Color (YMC)", "Farbe (YMC)", "Couleur (YMC)", "カラー (YMC)")),
    ("YMCF", ("Color and UV (YMCF)", "Farbe und UV (YMCF)", "Couleur et UV (YMCF)", "カラーとUV (YMCF)")),
    ("YMCK", ("Color and Black Resin (YMCK)", "Farbe und schwarzes Resin (YMCK)", "Couleur et résine noire (YMCK)", "カラーと黒レジン (YMCK)")),
    ("K", ("Black Resin Only (K)", "Nur schwarzes Resin (K)", "Résine noire seule (K)", "黒レジンのみ (K)")),
    ("Silver", ("Metallic Silver", "Metallic-Silber", "Argent métallisé", "メタリックシルバー")),
]
UV_RIBBON = "YMCF"

RESINS = [
    ("None", ("No Resin", "Kein Resin", "Pas de résine", "レジンなし")),
    ("BlackText", ("Black Text", "Schwarzer Text", "Texte noir", "黒の文字")),
    ("BlackGraphics", ("Black Graphics", "Schwarze Grafik", "Dessins noirs", "黒の図形")),
    ("BlackTextGraphics", ("Black Text and Graphics", "Schwarzer Text und Grafik", "Texte et dessins noirs", "黒の文字と図形")),
    ("BarCodes", ("Bar Codes", "Strichcodes", "Codes-barres", "バーコード")),
    ("AllBlack", ("Everything Black", "Alles Schwarze", "Tout le noir", "黒の部分すべて")),
    ("AllDark", ("Everything Dark", "Alles Dunkle", "Toutes les couleurs sombres", "暗い部分すべて")),
    ("TopHalf", ("Top Half", "Obere Hälfte", "Moitié supérieure", "上半分")),
    ("BottomHalf", ("Bottom Half", "Untere Hälfte", "Moitié inférieure", "下半分")),
    ("LeftHalf", ("Left Half", "Linke Hälfte", "Moitié gauche", "左半分")),
    ("RightHalf", ("Right Half", "Rechte Hälfte", "Moitié droite", "右半分")),
    ("DefinedAreas", ("Defined Areas", "Festgelegte Bereiche", "Zones définies", "指定した領域")),
    ("WholeCard", ("Whole Card", "Ganze Karte", "Carte entière", "カード全面")),
]

PEEL_OFFS = [
    ("None", ("No Peel-Off", "Kein Folienabzug", "Aucun retrait", "ピールオフなし")),
    ("Chip", ("Chip", "Chip", "Puce", "ICチップ")),
    ("WideChip", ("Chip with Margin", "Chip mit Rand", "Puce avec marge", "ICチップと余白")),
    ("Stripe", ("Magnetic Stripe", "Magnetstreifen", "Piste magnétique", "磁気ストライプ")),
    ("WideStripe", ("Wide Magnetic Stripe", "Breiter Magnetstreifen", "Piste magnétique large", "幅広の磁気ストライプ")),
    ("Signature", ("Signature Panel", "Unterschriftsfeld", "Panneau de signature", "署名欄")),
    ("Hologram", ("Hologram", "Hologramm", "Hologramme", "ホログラム")),
    ("ChipStripe", ("Chip and Stripe", "Chip und Magnetstreifen", "Puce et piste", "ICチップと磁気ストライプ")),
    ("ChipSignature", ("Chip and Signature Panel", "Chip und Unterschriftsfeld", "Puce et signature", "ICチップと署名欄")),
    ("StripeSignature", ("Stripe and Signature Panel", "Magnetstreifen und Unterschriftsfeld", "Piste et signature", "磁気ストライプと署名欄")),
    ("ChipStripeSignature", ("Chip, Stripe and Signature Panel", "Chip, Magnetstreifen und Unterschriftsfeld", "Puce, piste et signature", "ICチップ、磁気ストライプ、署名欄")),
    ("Edges", ("Card Edges", "Kartenränder", "Bords de la carte", "カードの縁")),
    ("DefinedAreas", ("Defined Areas", "Festgelegte Bereiche", "Zones définies", "指定した領域")),
    ("WholeCard", ("Whole Card", "Ganze Karte", "Carte entière", "カード全面")),
]

UVS = [
    ("None", ("No UV Printing", "Kein UV-Druck", "Pas d'impression UV", "UV印刷なし")),
    ("ImageCopy", ("Copy of the Image", "Kopie des Bildes", "Copie de l'image", "画像のコピー")),
    ("Text", ("Text Only", "Nur Text", "Texte seul", "文字のみ")),
    ("Logo", ("Stored Logo", "Gespeichertes Logo", "Logo mémorisé", "登録済みロゴ")),
    ("WholeCard", ("Whole Card", "Ganze Karte", "Carte entière", "カード全面")),
]

UV_MACS = [
    ("None", ("No MAC", "Kein MAC", "Pas de MAC", "MACなし")),
    ("Serial", ("Serial Number", "Seriennummer", "Numéro de série", "シリアル番号")),
    ("DateTime", ("Date and Time", "Datum und Uhrzeit", "Date et heure", "日付と時刻")),
    ("Pattern", ("Dot Pattern", "Punktmuster", "Motif de points", "ドットパターン")),
]

LAMINATES = [
    ("None", ("No Laminate", "Kein Laminat", "Pas de laminé", "ラミネートなし")),
    ("Front", ("Front Side", "Vorderseite", "Recto", "表面")),
    ("Back", ("Back Side", "Rückseite", "Verso", "裏面")),
    ("Both", ("Both Sides", "Beide Seiten", "Recto et verso", "両面")),
]

ROTATIONS = [
    ("None", ("No Rotation", "Nicht drehen", "Aucune rotation", "回転なし")),
    ("Rotate180", ("180 Degrees", "180 Grad", "180 degrés", "180度")),
]

ENTRY_FLIPS = [
    ("None", ("Do Not Flip", "Nicht wenden", "Ne pas retourner", "反転しない")),
    ("Flip", ("Flip", "Wenden", "Retourner", "反転する")),
]

ENCODE_FLIPS = ENTRY_FLIPS + [
    ("FlipAndReturn", ("Flip, Then Flip Back", "Wenden und zurückwenden", "Retourner puis remettre", "反転して元に戻す")),
]

NO_AREA = ("Default", ("No Area", "Kein Bereich", "Aucune zone", "領域なし"))
TYPED_AREA = ("Area", "Bereich", "Zone", "領域")
AREA_PARTS = ("X Y Width Height", "X Y Breite Höhe", "X Y Largeur Hauteur", "X Y 幅 高さ")

# Keyword, texts, width and height in points.
PAGE_SIZES = [
    ("CR80", ("CR80 Card (85.6 x 54 mm)", "Karte CR80 (85,6 x 54 mm)", "Carte CR80 (85,6 x 54 mm)", "CR80カード (85.6 x 54 mm)"), 242.65, 153.01),
    ("CR79", ("CR79 Adhesive Card (83.9 x 51 mm)", "Klebekarte CR79 (83,9 x 51 mm)", "Carte adhésive CR79 (83,9 x 51 mm)", "CR79粘着カード (83.9 x 51 mm)"), 237.83, 144.57),
    ("CR100", ("CR100 Oversize Card (98.5 x 67 mm)", "Großkarte CR100 (98,5 x 67 mm)", "Grande carte CR100 (98,5 x 67 mm)", "CR100大型カード (98.5 x 67 mm)"), 279.21, 189.92),
]
PAGE_OPTIONS = [
    ("PageSize", ("Card Size", "Kartengröße", "Format de carte", "カードサイズ")),
    ("PageRegion", ("Card Region", "Kartenbereich", "Région de carte", "カード領域")),
]


# Options, by side where there are two.


def ribbon_options(side):
    ribbon = of_side(side, ("{side} Ribbon", "Farbband {side}", "Ruban {side}", "{side}リボン"))
    resin = of_side(side, ("{side} Resin", "Resin {side}", "Résine {side}", "{side}レジン"))
    default_ribbon = "YMCK" if side == "front" else "K"
    return [
        Option(f"{side}Ribbon", ribbon, RIBBONS, default_ribbon),
        Option(f"{side}Resin", resin, RESINS, "BlackText"),
    ]


def uv_options(side, with_mac):
    uv = of_side(side, ("{side} UV", "UV {side}", "UV {side}", "{side}UV"))
    mac = of_side(side, ("{side} UV MAC", "UV-MAC {side}", "MAC UV {side}", "{side}UV MAC"))
    options = [Option(f"{side}UV", uv, UVS, "None")]
    if with_mac:
        options.append(Option(f"{side}UVMAC", mac, UV_MACS, "None"))
    return options


def peel_off_options(side):
    title = of_side(side, ("{side} Peel-Off", "Folienabzug {side}", "Retrait du film {side}", "{side}ピールオフ"))
    return [Option(f"{side}PO", title, PEEL_OFFS, "None")]


def area_options(keyword_prefix, side, kinds):
    """Three options for each kind, a (keyword, title) that tells what its rectangles are."""
    return [
        Option(
            f"{keyword_prefix}{side}{kind}{n}",
            tuple(f"{text} {n}" for text in of_side(side, title)),
            [NO_AREA],
            "Default",
            has_area=True,
        )
        for kind, title in kinds
        for n in (1, 2, 3)
    ]


def resin_areas(side):
    return area_options("", side, [
        ("ResinInclude", ("{side} Resin Area", "Resinbereich {side}", "Zone avec résine {side}", "{side}レジン領域")),
        ("ResinExclude", ("{side} No-Resin Area", "Bereich ohne Resin {side}", "Zone sans résine {side}", "{side}レジン除外領域")),
    ])


def peel_off_areas(side):
    return area_options("Custom", side, [
        ("PeelOff", ("{side} Peel-Off Area", "Abzugsbereich {side}", "Zone de retrait {side}", "{side}ピールオフ領域")),
        ("NonPeelOff", ("{side} Non-Peel-Off Area", "Bereich ohne Abzug {side}", "Zone sans retrait {side}", "{side}ピールオフ除外領域")),
    ])


def laminate_options():
    title = ("Thermal Laminate", "Thermolaminat", "Lamination thermique", "熱ラミネート")
    return [Option("cardLaminate", title, LAMINATES, "None")]


def rotation_options(side):
    title = of_side(side, ("{side} Rotation", "Drehung {side}", "Rotation {side}", "{side}の回転"))
    return [Option(f"{side}Rotation", title, ROTATIONS, "None")]


def flip_options():
    entry = ("Card Flip at Entry", "Karte beim Einzug wenden", "Retournement à l'entrée", "給紙時のカード反転")
    encode = ("Card Flip for Magnetic Encoding", "Karte zur Magnetkodierung wenden", "Retournement pour l'encodage magnétique", "磁気エンコード時のカード反転")
    return [
        Option("entryCardFlip", entry, ENTRY_FLIPS, "None"),
        Option("magEncodeCardFlip", encode, ENCODE_FLIPS, "None"),
    ]


# Groups are named unlike any option: their translations share one space of names.
RIBBON_GROUP = ("RibbonGroup", ("Ribbon and Resin", "Farbband und Resin", "Ruban et résine", "リボンとレジン"))
RESIN_AREA_GROUP = ("ResinAreaGroup", ("Resin Areas", "Resinbereiche", "Zones de résine", "レジン領域"))
UV_GROUP = ("UVGroup", ("Ultraviolet", "Ultraviolett", "Ultraviolet", "紫外線"))
PEEL_OFF_GROUP = ("PeelOffGroup", ("Peel-Off", "Folienabzug", "Retrait du film", "ピールオフ"))
PEEL_OFF_AREA_GROUP = ("PeelOffAreaGroup", ("Peel-Off Areas", "Abzugsbereiche", "Zones de retrait", "ピールオフ領域"))
LAMINATE_GROUP = ("LaminateGroup", ("Thermal Laminate", "Thermolaminat", "Lamination thermique", "熱ラミネート"))
HANDLING_GROUP = ("HandlingGroup", ("Card Handling", "Kartenführung", "Gestion des cartes", "カード搬送"))


def groups_of(sides, is_full):
    """The groups of a printer that prints these sides; a full one also has MAC, laminate and flips."""

    def each(options, *arguments):
        return [option for side in sides for option in options(side, *arguments)]

    laminate = [(LAMINATE_GROUP, laminate_options())] if is_full else []
    flips = flip_options() if is_full else []
    return [
        (RIBBON_GROUP, each(ribbon_options)),
        (RESIN_AREA_GROUP, each(resin_areas)),
        (UV_GROUP, each(uv_options, is_full)),
        (PEEL_OFF_GROUP, each(peel_off_options)),
        (PEEL_OFF_AREA_GROUP, each(peel_off_areas)),
        *laminate,
        (HANDLING_GROUP, each(rotation_options) + flips),
    ]


# Constraints, as PPD lines. An option without a choice stands for all its choices but None.
# Those with a resolver come first: CUPS gives up when it meets one after it resolved another by
# itself.


def resolver(name, changes, *constraints):
    return [f'*cupsUIConstraints {name}: "{constraint}"' for constraint in constraints] + [
        f'*cupsUIResolver {name}: "{changes}"'
    ]


def laminate_needs_cr80():
    """The laminator takes CR80 cards only, and nothing but the user changes a card's size."""
    others = [f"*PageSize {size} *cardLaminate" for size, *_ in PAGE_SIZES if size != "CR80"]
    return resolver("LaminateSize", "*cardLaminate None", *others)


def laminate_covers_peel_off():
    """Laminate does not stick where the film is peeled off; the other side may keep its laminate."""
    return (
        resolver("FrontLaminate", "*cardLaminate Back *frontPO None", "*cardLaminate Both *frontPO")
        + resolver("BackLaminate", "*cardLaminate Front *backPO None", "*cardLaminate Both *backPO")
        + [
            '*cupsUIConstraints: "*cardLaminate Front *frontPO"',
            '*cupsUIConstraints: "*cardLaminate Back *backPO"',
        ]
    )


def uv_needs_uv_ribbon(side, with_mac):
    return [
        f'*cupsUIConstraints: "*{option.keyword} *{side}Ribbon {ribbon}"'
        for option in uv_options(side, with_mac)
        for ribbon, _ in RIBBONS
        if ribbon != UV_RIBBON
    ]


def one_flip_only():
    """A card that was flipped at entry already shows its stripe to the encoder."""
    return ['*cupsUIConstraints: "*entryCardFlip *magEncodeCardFlip"']


# Where choices lie on a CR80 card, from its top left corner: choice, X, Y, width and height. A choice
# of several parts has a row for each.

CHIP = "10mm 19mm 13mm 12mm"
STRIPE = "0mm 4mm 85.6mm 13mm"
PEEL_OFF_PLACES = [
    ("Chip", CHIP),
    ("WideChip", "8mm 17mm 17mm 16mm"),
    ("Stripe", STRIPE),
    ("WideStripe", "0mm 3mm 85.6mm 16mm"),
    ("ChipStripe", CHIP),
    ("ChipStripe", STRIPE),
]
RESIN_PLACES = [
    ("TopHalf", "0mm 0mm 85.6mm 27mm"),
    ("BottomHalf", "0mm 27mm 85.6mm 27mm"),
    ("LeftHalf", "0mm 0mm 42.8mm 54mm"),
    ("RightHalf", "42.8mm 0mm 42.8mm 54mm"),
]


def places(groups):
    """The lines that tell where choices lie; the origin stands before them."""
    keywords = {option.keyword for _, options in groups for option in options}
    lines = [
        f'*cardpanelsArea {keyword}.{choice}: "{place}"'
        for ending, known in (("Resin", RESIN_PLACES), ("PO", PEEL_OFF_PLACES))
        for keyword in (f"front{ending}", f"back{ending}")
        if keyword in keywords
        for choice, place in known
    ]
    return ["*cardpanelsOrigin: TopLeft", *lines] if lines else []


# The PPDs.


@dataclasses.dataclass
class Printer:
    file: str
    model: str
    number: int
    groups: list
    constraints: list


def printers():
    return [
        Printer(
            "card-duplex.ppd",
            "Example Card Duplex",
            300,
            groups_of(["front", "back"], is_full=True),
            laminate_needs_cr80()
            + laminate_covers_peel_off()
            + uv_needs_uv_ribbon("front", with_mac=True)
            + uv_needs_uv_ribbon("back", with_mac=True)
            + one_flip_only(),
        ),
        Printer(
            "card-single.ppd",
            "Example Card Single",
            200,
            groups_of(["front"], is_full=False),
            uv_needs_uv_ribbon("front", with_mac=False),
        ),
        Printer(
            "card-laminate.ppd",
            "Example Card Laminate",
            100,
            [(LAMINATE_GROUP, laminate_options())],
            laminate_needs_cr80(),
        ),
    ]


def header(printer):
    return f'''\
*PPD-Adobe: "4.3"
*% A sample: no such printer exists. Written by generate.py.
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*cupsLanguages: "{' '.join(LANGUAGES)}"
*PCFileName: "EXCRD{printer.number}.PPD"
*Manufacturer: "Example"
*Product: "({printer.model})"
*ModelName: "{printer.model}"
*ShortNickName: "{printer.model}"
*NickName: "{printer.model}, cardpanels sample"
*PSVersion: "(3010.000) 0"
*ColorDevice: True
*DefaultColorSpace: RGB
*DefaultResolution: 300dpi
*cupsVersion: 2.4
*cupsModelNumber: {printer.number}
*cupsSNMPSupplies: False
*% The printer takes PDF as it is, so a queue needs no driver program.
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"'''.splitlines()


def pick_one(keyword, title, default, order, choices):
    """The lines of an option; `choices` are (keyword, text, code)."""
    return [
        f"*OpenUI *{keyword}/{title[0]}: PickOne",
        f"*OrderDependency: {order} AnySetup *{keyword}",
        f"*Default{keyword}: {default}",
        *[f'*{keyword} {choice}/{text[0]}: "{code}"' for choice, text, code in choices],
        f"*CloseUI: *{keyword}",
    ]


def page_options():
    default = PAGE_SIZES[0][0]
    choices = [
        (size, text, f"<</PageSize[{width} {height}]/ImagingBBox null>>setpagedevice")
        for size, text, width, height in PAGE_SIZES
    ]
    lines = []
    for keyword, title in PAGE_OPTIONS:
        lines += pick_one(keyword, title, default, 10, choices)
    lines.append(f"*DefaultImageableArea: {default}")
    for size, text, width, height in PAGE_SIZES:
        lines.append(f'*ImageableArea {size}/{text[0]}: "0 0 {width} {height}"')
    lines.append(f"*DefaultPaperDimension: {default}")
    for size, text, width, height in PAGE_SIZES:
        lines.append(f'*PaperDimension {size}/{text[0]}: "{width} {height}"')
    return lines


def option_lines(option):
    keyword = option.keyword
    choices = [(choice, text, "") for choice, text in option.choices]
    lines = pick_one(keyword, option.title, option.default, 20, choices)
    if option.has_area:
        lines.append(f'*Custom{keyword} True/{TYPED_AREA[0]}: "pop"')
        lines.append(f"*ParamCustom{keyword} Area/{AREA_PARTS[0]}: 1 string 0 83")
    return lines


def group_lines(group, options):
    keyword, text = group
    lines = [f"*OpenGroup: {keyword}/{text[0]}"]
    for option in options:
        lines += option_lines(option)
    return lines + [f"*CloseGroup: {keyword}"]


def option_translations(option, code, language):
    keyword = option.keyword
    lines = [f'*{code}.Translation {keyword}/{option.title[language]}: ""']
    lines += [f'*{code}.{keyword} {choice}/{text[language]}: ""' for choice, text in option.choices]
    if option.has_area:
        lines.append(f'*{code}.Custom{keyword} True/{TYPED_AREA[language]}: ""')
        lines.append(f'*{code}.ParamCustom{keyword} Area/{AREA_PARTS[language]}: ""')
    return lines


def translations(printer, language):
    code = LANGUAGES[language]
    page_choices = [(size, text) for size, text, *_ in PAGE_SIZES]
    lines = [
        line
        for keyword, title in PAGE_OPTIONS
        for line in option_translations(Option(keyword, title, page_choices, ""), code, language)
    ]
    for (keyword, text), options in printer.groups:
        lines.append(f'*{code}.Translation {keyword}/{text[language]}: ""')
        for option in options:
            lines += option_translations(option, code, language)
    return lines


def ppd(printer):
    lines = header(printer) + places(printer.groups) + printer.constraints + page_options()
    for group, options in printer.groups:
        lines += group_lines(group, options)
    for language in range(1, len(LANGUAGES)):
        lines += translations(printer, language)
    return "\n".join(lines) + "\n"


def main(arguments):
    folder = pathlib.Path(__file__).parent
    if arguments not in ([], ["--check"]):
        sys.exit("usage: generate.py [--check]")
    stale = []
    for printer in printers():
        path, text = folder / printer.file, ppd(printer)
        if not arguments:
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            stale.append(printer.file)
    if stale:
        sys.exit(f"generate.py: not up to date: {', '.join(stale)}; run it without --check")


if __name__ == "__main__":
    main(sys.argv[1:])
