// The language of the page, in the page and in its worker. English texts are in the sources, as arguments of `tr` and
// `plural`; a catalog has their translations, and those of the core's texts.

/** The texts of a language, which the build makes from a catalog of gettext. */
export interface Texts {
    /** The form that a text has for each of the counts 0 to 199, a digit each. */
    plurals: string;
    /** By English text; a list for a text that depends on a count. */
    texts: Record<string, string | string[]>;
}

export interface Language extends Texts {
    code: string; // "de", "pt_BR"
    tag: string; // "de", "pt-BR"; for numbers, of the reader's country if that has the language
    decimalMark: string;
}

export const english: Language = { code: "en", tag: "en", decimalMark: ".", plurals: "", texts: {} };

let language = english;

/** What fills the places %1, %2, ... of a text. */
type Places<Text extends string> = Text extends `${string}%3${string}` ? [string, string, string]
    : Text extends `${string}%2${string}` ? [string, string]
    : Text extends `${string}%1${string}` ? [string] : [];

function filled(text: string, places: string[]): string {
    return text.replace(/%([1-9])/g, (place, digit: string) => places[Number(digit) - 1] ?? place);
}

function first(texts: string | string[] | undefined): string | undefined {
    return typeof texts === "string" ? texts : texts?.[0];
}

/** Returns an English text in the language of the page. */
export function tr<Text extends string>(text: Text, ...places: Places<Text>): string {
    return filled(listed(text), places);
}

/** Returns the form of a text for a whole number. */
export function plural<Text extends string>(one: Text, many: string, count: number, ...places: Places<Text>): string {
    const texts = language.texts[one];
    const form = Number(language.plurals[count < 200 ? count : 100 + (count % 100)]);
    return filled(Array.isArray(texts) ? texts[form] ?? texts[0]! : count === 1 ? one : many, places);
}

/** Returns a text that the core lists, such as the title of a preset. */
export function listed(text: string): string {
    return first(language.texts[text]) ?? text;
}

/** Removes the mark of the access key, which the desktop's windows need: "&Pages:", or "ページ数(&P):" in Japanese. */
export function withoutKey(text: string): string {
    return text.replace(/\(&\w\)/, "").replace("&", "");
}

/** Returns a number with the signs of the language. */
export function numeral(value: number): string {
    return value.toLocaleString(language.tag, { useGrouping: false });
}

export function speak(wanted: Language): void {
    language = wanted;
}

export function spoken(): Language {
    return language;
}

/**
 * Returns the code of the first wanted language, given by tags in order of preference, that is English or has a catalog; a
 * catalog for another country counts. English if there is none.
 */
export function codeFor(wanted: readonly string[], codes: string[]): string {
    for (const tag of wanted) {
        const [name] = tag.split(/[-_]/) as [string];
        const code = codes.find((one) => one.replace("_", "-").toLowerCase() === tag.toLowerCase()) ??
            codes.find((one) => one.split("_")[0] === name.toLowerCase());
        if (code !== undefined) {
            return code;
        }
        if (name.toLowerCase() === "en") {
            break;
        }
    }
    return "en";
}

/** Returns the language of a catalog. Its numbers are those of the reader's country if that is one of the wanted. */
export function languageOf(code: string, texts: Texts, wanted: readonly string[]): Language {
    const name = code.split("_")[0]!;
    const tag = wanted.find((one) => one.toLowerCase().split("-")[0] === name) ?? code.replace("_", "-");
    const decimalMark = new Intl.NumberFormat(tag).formatToParts(0.5).find(({ type }) => type === "decimal")?.value ?? ".";
    return { code, tag, decimalMark, ...texts };
}
