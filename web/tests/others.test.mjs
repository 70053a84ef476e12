// The page in the engines of the other browsers: Firefox, spoken to by Marionette, and WebKitGTK, by WebDriver.

import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { once } from "node:events";
import { existsSync } from "node:fs";
import { mkdtemp, rm, writeFile } from "node:fs/promises";
import { connect, createServer } from "node:net";
import { tmpdir } from "node:os";
import { join } from "node:path";
import test from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { serve } from "../serve.mjs";
import { loadCore, site } from "./support.mjs";

const elementKey = "element-6066-11e4-a52e-4f735466cecf"; // of WebDriver
const patience = 60; // seconds

async function freePort() {
    const server = createServer().listen(0, "127.0.0.1");
    await once(server, "listening");
    const { port } = server.address();
    server.close();
    return port;
}

/** Calls `attempt` until it does not throw. */
async function eventually(attempt) {
    for (const end = Date.now() + 1000 * patience; ;) {
        try {
            return await attempt();
        } catch (why) {
            if (Date.now() > end) {
                throw why;
            }
            await sleep(100);
        }
    }
}

/** Starts a browser with a home of its own, calls `use` with a folder and a port, and ends the browser. */
async function withProgram(commandOf, use) {
    const [folder, port] = [await mkdtemp(join(tmpdir(), "linealis-other-")), await freePort()];
    const [command, ...parameters] = await commandOf(folder, port);
    const program = spawn(command, parameters, {
        detached: true, stdio: "ignore", env: { ...process.env, HOME: folder, XDG_CONFIG_HOME: folder, TZ: "UTC" },
    });
    const failure = once(program, "error").then(([why]) => { throw why; });
    try {
        await Promise.race([use(port), failure]);
    } finally {
        try {
            process.kill(-program.pid); // with what it has started
        } catch {
            // has ended
        }
        await eventually(() => rm(folder, { recursive: true, force: true }));
    }
}

/** Firefox answers requests over a socket: each message is its length, a colon, and JSON. */
async function firefox(port) {
    const socket = await eventually(async () => {
        const tried = connect(port, "127.0.0.1");
        await once(tried, "connect");
        return tried;
    });
    const waiting = new Map();
    let buffer = Buffer.alloc(0);
    socket.on("data", (data) => {
        buffer = Buffer.concat([buffer, data]);
        for (;;) {
            const colon = buffer.indexOf(":");
            const end = colon + 1 + Number(buffer.toString("latin1", 0, Math.max(colon, 0)));
            if (colon < 0 || buffer.length < end) {
                return;
            }
            const message = JSON.parse(buffer.toString("utf8", colon + 1, end));
            buffer = buffer.subarray(end);
            if (Array.isArray(message)) { // the first one is a greeting
                const [, id, error, result] = message;
                const { resolve, reject } = waiting.get(id);
                error ? reject(new Error(error.message)) : resolve(result);
            }
        }
    });
    let next = 0;
    const ask = (name, parameters) => new Promise((resolve, reject) => {
        waiting.set(++next, { resolve, reject });
        const text = JSON.stringify([0, next, `WebDriver:${name}`, parameters]);
        socket.write(`${Buffer.byteLength(text)}:${text}`);
    });
    await ask("NewSession", {});
    const idOf = async (selector) =>
        (await ask("FindElement", { using: "css selector", value: selector })).value[elementKey];
    return {
        open: (url) => ask("Navigate", { url }),
        run: async (script) => (await ask("ExecuteScript", { script, args: [] })).value,
        click: async (selector) => ask("ElementClick", { id: await idOf(selector) }),
        type: async (selector, text) => ask("ElementSendKeys", { id: await idOf(selector), text }),
        shot: async () => (await ask("TakeScreenshot", { full: false })).value,
        size: (width, height) => ask("SetWindowRect", { width, height }),
        end: async () => socket.destroy(),
    };
}

async function webKit(port) {
    const send = async (path, body, method = "POST") => {
        const response = await fetch(`http://127.0.0.1:${port}/session${path}`, {
            method, body: method === "POST" ? JSON.stringify(body) : undefined,
        });
        const { value } = await response.json();
        if (!response.ok) {
            throw new Error(value.message);
        }
        return value;
    };
    const { sessionId } = await eventually(() => send("", { capabilities: {} }));
    const ask = (path, body, method) => send(`/${sessionId}/${path}`, body, method);
    const at = async (selector) => `element/${(await ask("element", { using: "css selector", value: selector }))[elementKey]}`;
    return {
        open: (url) => ask("url", { url }),
        run: (script) => ask("execute/sync", { script, args: [] }),
        click: async (selector) => ask(`${await at(selector)}/click`, {}),
        type: async (selector, text) => ask(`${await at(selector)}/value`, { text }),
        shot: () => ask("screenshot", undefined, "GET"),
        size: (width, height) => ask("window/rect", { width, height }),
        end: () => send(`/${sessionId}`, undefined, "DELETE"),
    };
}

const browsers = [
    {
        name: "Firefox", program: "firefox-esr", drive: firefox,
        command: async (folder, port) => {
            await writeFile(join(folder, "user.js"), Object.entries({
                "marionette.port": port, "intl.accept_languages": "en-US", "datareporting.policy.dataSubmissionEnabled": false,
                "browser.download.folderList": 2, "browser.download.dir": folder, "app.update.enabled": false,
            }).map(([name, value]) => `user_pref(${JSON.stringify(name)}, ${JSON.stringify(value)});\n`).join(""));
            return ["firefox-esr", "--headless", "--marionette", "--no-remote", "--profile", folder];
        },
    },
    {
        name: "WebKitGTK", program: "WebKitWebDriver", drive: webKit,
        command: (folder, port) => ["xvfb-run", "-a", "-s", "-screen 0 1280x900x24", "WebKitWebDriver", `--port=${port}`],
    },
];

/** Returns why a browser cannot be tested: the package that is missing. False if it can. */
function missing(program) {
    if (process.env.PATH.split(":").some((folder) => existsSync(join(folder, program)))) {
        return false;
    }
    const row = execFileSync("sed", ["-n", `/^web .* ${program} /p`, join(site, "../../../scripts/setup")], { encoding: "utf8" });
    return `the package ${row.split(" ")[1]} is not installed`;
}

/** From the gallery to the bytes of the PDF, which must be the core's for the moment that the PDF names. */
async function makesTheSamePdf(browser, address) {
    const waitFor = (condition) => eventually(async () => assert.ok(await browser.run(`return ${condition}`), condition));
    await browser.open(address);
    await waitFor("!document.getElementById('gallery').hidden");
    await browser.run(`
        const make = URL.createObjectURL;
        URL.createObjectURL = (blob) => {
            const reader = new FileReader();
            reader.onload = () => { document.body.dataset.made = reader.result.split(",")[1]; };
            reader.readAsDataURL(blob);
            return make.call(URL, blob);
        };`);
    await browser.click("[data-kind=grid]");
    await waitFor("document.getElementById('pane').dataset.painted");
    await browser.run("document.getElementById('control-EditTopMargin').select()");
    await browser.type("#control-EditTopMargin", "1.25");
    await waitFor("document.getElementById('control-EditTopMargin').value === '1.25'");
    await browser.click("#generate");
    await waitFor("document.body.dataset.made");
    const made = Buffer.from(await browser.run("return document.body.dataset.made"), "base64");
    const now = made.toString("latin1").match(/CreationDate \(D:(\d{4})(\d\d)(\d\d)(\d\d)(\d\d)(\d\d)/).slice(1).map(Number);
    const core = await loadCore();
    const isMetric = await browser.run("return document.getElementById('control-PopupUnits').selectedIndex") !== 0;
    core.ask({ do: "open", kind: "grid", now: [...now, 0], isMetric });
    core.ask({ do: "set", control: "EditTopMargin", value: "1.25", finish: true });
    assert.ok(made.equals(Buffer.from(core.ask({ do: "write", format: "pdf", now: [...now, 0] }).bytes)));
}

/** Draws dense papers. With LINEALIS_SHOTS, pictures of them are kept in that folder. */
async function drawsPapers(browser, name, address) {
    for (const kind of ["graph", "hexagon", "cornell", "dots"]) {
        await browser.open(`${address}?${kind}#${kind}`);
        await eventually(async () => assert.ok(await browser.run(
            `return document.querySelector("#form input") && document.getElementById("pane").dataset.painted`), kind));
        assert.equal(await browser.run("return document.getElementById('status').textContent"), "");
        assert.deepEqual(await browser.run(`return [...document.querySelectorAll("#formSide, .scrolled")]
            .filter((box) => box.scrollWidth > box.clientWidth).map((box) => [box.className, box.scrollWidth, box.clientWidth])`),
            [], `${kind} is too wide`);
        if (process.env.LINEALIS_SHOTS) {
            await sleep(1500);
            await writeFile(join(process.env.LINEALIS_SHOTS, `${name}-${kind}.png`), Buffer.from(await browser.shot(), "base64"));
        }
    }
}

for (const { name, program, drive, command } of browsers) {
    test(`${name} makes the same PDF, and draws papers`, { skip: missing(program) }, async () => {
        const server = await serve(site);
        const address = `http://127.0.0.1:${server.address().port}/`;
        try {
            await withProgram(command, async (port) => {
                const browser = await drive(port);
                await browser.size(1280, 860);
                await makesTheSamePdf(browser, address);
                await drawsPapers(browser, name, address);
                await browser.end();
            });
        } finally {
            server.close();
            server.closeAllConnections();
        }
    });
}
