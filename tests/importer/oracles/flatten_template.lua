-- SPDX-License-Identifier: GPL-3.0-or-later
-- Loads a Lightroom template with Lua 5.4 and prints what the program's
-- template reader should store for it: usage lua5.4 flatten_template.lua FILE
--   S <tab> key <tab> value      a setting; numbers (and number texts) as %.17g
--   C <tab> curve <tab> x,y;x,y  a point curve
--   E <tab> message              the reader must reject the file ("syntax":
--                                with any syntax message)
-- Tabs, line breaks and backslashes in texts are written as \t, \n, \r, \\.
-- Exit status 2, with Lua's reason, when Lua itself cannot load or run it.
-- Lua forgets the order of a table, so keys are walked in byte order (the
-- order Lightroom writes them in).
local env = {} -- no functions: a template is data
local chunk, failure = loadfile(arg[1], "t", env)
local ran = chunk and pcall(chunk)
if not ran then
    io.stderr:write(tostring(failure), "\n")
    os.exit(2)
end

local function escape(text)
    return (text:gsub("[\\\t\n\r]", { ["\\"] = "\\\\", ["\t"] = "\\t", ["\n"] = "\\n", ["\r"] = "\\r" }))
end
local function shown(value)
    local number = tonumber(value)
    return number and string.format("%.17g", number) or escape(tostring(value))
end

local curve_fields = { ToneCurve = "tone_curve", ToneCurvePV2012 = "tone_curve",
    ToneCurvePV2012Red = "tone_curve_red", ToneCurvePV2012Green = "tone_curve_green",
    ToneCurvePV2012Blue = "tone_curve_blue" }
local lines, curves, rejected = {}, {}, nil
local function reject(message) rejected = rejected or message end

-- A curve is a list of integer pairs within the reader's int range.
local function read_curve(key, t)
    local count = 0
    for _ in pairs(t) do count = count + 1 end
    if count ~= #t or count % 2 ~= 0 then return reject("syntax") end
    local points = {}
    for i = 1, count, 2 do
        for _, v in ipairs({ t[i], t[i + 1] }) do
            if math.type(v) ~= "integer" or v < -2147483648 or v > 2147483647 then return reject("syntax") end
        end
        points[#points + 1] = t[i] .. "," .. t[i + 1]
    end
    if not curve_fields[key] then return reject("Unsupported curve type: " .. key) end
    curves[curve_fields[key]] = table.concat(points, ";")
end

local function flatten(t)
    if type(t[1]) == "table" then return end -- a list of tables (masks) is passed over
    local keys = {}
    for k in pairs(t) do
        if type(k) ~= "string" then return reject("syntax") end
        keys[#keys + 1] = k
    end
    table.sort(keys)
    for _, key in ipairs(keys) do
        local value = t[key]
        if type(value) == "table" then
            if key:sub(1, 9) == "ToneCurve" then read_curve(key, value) else flatten(value) end
        elseif type(value) == "function" then
            reject("syntax")
        else
            lines[escape(key)] = shown(value) -- a repeated key: the later one wins, as in the reader
        end
    end
end
flatten(env)

if rejected then
    print("E\t" .. rejected)
    return
end
local function print_sorted(tag, map)
    local keys = {}
    for k in pairs(map) do keys[#keys + 1] = k end
    table.sort(keys)
    for _, k in ipairs(keys) do print(tag .. "\t" .. k .. "\t" .. map[k]) end
end
print_sorted("S", lines)
print_sorted("C", curves)
