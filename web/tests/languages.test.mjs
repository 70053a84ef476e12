// The page in other languages than English.

import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { join } from "node:path";
import test from "node:test";
import { choose, downloaded, field, painted, repaints, value, visit } from "./page.mjs";
import { loadCore, now, site } from "./support.mjs";

/** A language in which every text is in brackets and 40 % longer. */
async function pseudo() {
    const { plurals, texts } = JSON.parse(await readFile(join(site, "de.json"), "utf8"));
    const long = (english) => `[${english} ${"ö ".repeat(Math.ceil(english.length / 5))}]`;
    for (const [english, text] of Object.entries(texts)) {
        texts[english] = Array.isArray(text) ? text.map(() => long(english)) : long(english);
    }
    return JSON.stringify({ plurals, texts });
}

/** Returns the texts that are seen or said without brackets around all their words. Runs in the page. */
function untranslated() {
    const texts = [document.title.replace(/ ?[–-]? ?Linealis$/, "")];
    for (const element of document.querySelectorAll("body *")) {
        if (element.closest("script, noscript, [hidden], dialog:not([open]), #galleryLanguage, #menuItems select")) {
            continue;
        }
        texts.push(...["title", "aria-label", "aria-description", "placeholder"].map((name) => element.getAttribute(name) ?? ""));
        texts.push(...[...element.childNodes].filter(({ nodeType }) => nodeType === Node.TEXT_NODE).map(({ data }) => data));
    }
    const outside = (text) => {
        for (let before = ""; before !== text;) {
            [before, text] = [text, text.replace(/\[[^[\]]*\]/g, "")];
        }
        return text;
    };
    return [...new Set(texts.filter((text) => /\p{L}/u.test(outside(text)) && !text.startsWith("Linealis")))];
}

/** Returns the texts that are wider than their place, or leave it. Tables may be scrolled in pseudo only. Runs in the page. */
function clipped(isPseudo) {
    const found = [];
    const say = (element, why) => found.push(`${why}: ${element.id || element.className || element.tagName} “${element.textContent.trim().slice(0, 60)}”`);
    for (const element of document.querySelectorAll("button, summary, select, h1, h2, label, .said, .readout, .text, .columnHead, p, li")) {
        const box = element.getBoundingClientRect();
        if (box.width === 0) {
            continue;
        }
        if (element.tagName !== "LABEL" && element.scrollWidth > element.clientWidth + 1 && getComputedStyle(element).display !== "inline") {
            say(element, "cut");
        }
        const place = element.closest(".menu > div, dialog, .scrolled, #formSide, .zoom, .bar, body");
        const room = place.getBoundingClientRect();
        if (!place.matches(".scrolled") && (box.left < room.left - 1 || box.right > room.right + 1)) {
            say(element, "outside");
        }
    }
    for (const bar of document.querySelectorAll(`.bar, #formSide, dialog[open], .kinds button${isPseudo ? "" : ", .scrolled"}`)) {
        if (bar.scrollWidth > bar.clientWidth + 1) {
            say(bar, "too full");
        }
    }
    return found;
}

for (const locale of ["de-DE", "ja-JP", "pseudo"]) {
    test(`nothing is clipped or untranslated in any form: ${locale}`, async () => {
        const isPseudo = locale === "pseudo";
        const kinds = (await loadCore()).ask({ do: "catalog" }).json.kinds;
        await visit("", async (page) => {
            const check = async (what) => {
                assert.deepEqual(await page.evaluate(clipped, isPseudo), [], what);
                if (isPseudo) {
                    assert.deepEqual(await page.evaluate(untranslated), [], what);
                }
            };
            await page.locator("[data-kind]").first().waitFor();
            await check("gallery");
            for (const { name } of kinds) {
                await page.click(`[data-kind=${name}]`);
                await page.waitForFunction((link) => location.hash === `#${link}`, name);
                await painted(page);
                await field(page, "EditTopMargin").fill("0.1"); // has remarks and things to check
                await page.locator("#checks:not([hidden]) > summary").click();
                await check(name);
                await page.keyboard.press("Escape");
                await page.click("#menu > summary");
                await check(`${name}, menu`);
                await page.click("#menu > summary");
                for (const opener of ["presets", "range", "wizard", "pad"].filter((one) => one === "presets" || name === "graph")) {
                    await (opener === "pad" ? choose(page, opener) : page.click(`#${opener}`));
                    await page.locator("#dialog[open]").waitFor();
                    await check(`${name}, ${opener}`);
                    await page.click("#dialogCancel");
                }
                await page.click("#toGallery");
            }
        }, {
            locale: isPseudo ? "de-DE" : locale, serviceWorkers: "block",
            routes: isPseudo ? { "**/de.json": await pseudo() } : {},
        });
    });
}

test("the language is that of the browser or the chosen one, at once and for good; files stay the same", async () => {
    const core = await loadCore();
    await visit("#grid&units=cm&top-margin=1.5", async (page) => {
        await page.clock.setFixedTime(Date.UTC(now[0], now[1] - 1, ...now.slice(2, 6)));
        const shows = (tag, generate) => page.waitForFunction(([lang, text]) => document.documentElement.lang === lang &&
            document.getElementById("generate").textContent === text, [tag, generate]);
        const language = async (code) => {
            await page.click("#menu > summary");
            await page.locator("#menuItems select").selectOption(code);
        };
        await shows("fr", "Générer"); // Swedish has no catalog
        await painted(page);
        await field(page, "PopupUnits").selectOption({ index: 0 });
        await field(page, "EditTopMargin").fill("0.3");
        await page.locator(".readout", { hasText: "7,62" }).or(page.locator(".said", { hasText: "7,62" })).first().waitFor();
        await language("pt_BR");
        await shows("pt-BR", "Gerar");
        assert.equal(await value(page, "EditTopMargin"), "0.3");
        assert.match(await page.locator("#undo").getAttribute("title"), /^Desfazer: .* → 0\.3$/);
        await language("en");
        await shows("en", "Generate");
        await language("ja");
        await shows("ja", "作成");
        core.ask({ do: "open", link: "grid&units=cm&top-margin=1.5", now });
        core.ask({ do: "set", control: "PopupUnits", value: "#0", finish: true });
        core.ask({ do: "set", control: "EditTopMargin", value: "0.3", finish: true });
        const { bytes } = await downloaded(page, () => page.click("#generate"));
        assert.ok(bytes.equals(Buffer.from(core.ask({ do: "write", format: "pdf", now }).bytes)));
        const svg = (await downloaded(page, () => choose(page, "saveSvg"))).bytes;
        assert.ok(svg.equals(Buffer.from(core.ask({ do: "write", format: "svg", now }).bytes)));
        await page.reload();
        await shows("ja", "作成");
        await repaints(page, () => language(""));
        await shows("fr", "Générer");
    }, { locale: "sv-SE", timezoneId: "UTC", languages: ["sv-SE", "fr-CH", "en"] });
});
