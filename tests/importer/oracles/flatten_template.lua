-- SPDX-License-Identifier: GPL-3.0-or-later
-- Loads a Lightroom template with the real Lua 5.4 interpreter and prints what
-- the program's nested-template reader should store for it, so that a test can
-- compare the two. Usage: lua5.4 flatten_template.lua FILE
--
-- Output, one record per line, fields separated by tabs; tabs, line breaks and
-- backslashes inside keys and values are written as \t, \n, \r and \\:
--   S key value            a string
--   N key tostring %.17g   a number (tostring, then the exact double)
--   B key true|false       a boolean
--   C curve x,y;x,y        a point curve (tone_curve, tone_curve_red, ...)
--   K key                  a key (or curve) stored from more than one place with
--                          different values: which one wins depends on the
--                          order in the file, which Lua does not keep
--   E message              the reader must reject the file (with this message
--                          when it is not "syntax")
-- A file Lua itself cannot load or run exits with status 2 and the reason on
-- standard error.
--
-- Lua forgets the order in which a table was written, so tables are walked
-- with their keys in byte order (the order Lightroom writes them in); within
-- one table a repeated key has already been resolved by Lua, later one
-- winning, as in the reader.

local path = arg[1]
if not path then
    io.stderr:write("usage: lua5.4 flatten_template.lua FILE\n")
    os.exit(2)
end

-- No library functions in the template's environment: a template is data, and
-- a file that calls something is not one the reader can take either.
local env = {}
local chunk, load_error = loadfile(path, "t", env)
if not chunk then
    io.stderr:write(load_error, "\n")
    os.exit(2)
end
local ran, run_error = pcall(chunk)
if not ran then
    io.stderr:write(tostring(run_error), "\n")
    os.exit(2)
end

local function escape(text)
    return (text:gsub("[\\\t\n\r]", { ["\\"] = "\\\\", ["\t"] = "\\t", ["\n"] = "\\n", ["\r"] = "\\r" }))
end

local curve_fields = {
    ToneCurve = "tone_curve",
    ToneCurvePV2012 = "tone_curve",
    ToneCurvePV2012Red = "tone_curve_red",
    ToneCurvePV2012Green = "tone_curve_green",
    ToneCurvePV2012Blue = "tone_curve_blue",
}

local INT_MIN, INT_MAX = -2147483648, 2147483647

local settings = {}      -- key -> { kind, text... }
local stored_from = {}   -- key -> true once a different value replaced an earlier one
local curves = {}        -- field -> list of points
local curve_order = {}
local rejected = nil

local function reject(message)
    rejected = rejected or message
end

local function sorted_keys(t)
    local keys = {}
    for k in pairs(t) do
        if type(k) ~= "string" then
            return nil
        end
        keys[#keys + 1] = k
    end
    table.sort(keys)
    return keys
end

local function scalar_record(value)
    local kind = type(value)
    if kind == "string" then
        return { "S", escape(value) }
    elseif kind == "number" then
        return { "N", tostring(value), string.format("%.17g", value) }
    elseif kind == "boolean" then
        return { "B", tostring(value) }
    end
    return nil
end

local function same_record(a, b)
    if #a ~= #b then
        return false
    end
    for i = 1, #a do
        if a[i] ~= b[i] then
            return false
        end
    end
    return true
end

local function store(key, record)
    local earlier = settings[key]
    if earlier and not same_record(earlier, record) then
        stored_from[key] = true
    end
    settings[key] = record
end

-- A list of integers, each in the reader's int range, in pairs.
local function read_curve(key, t)
    local count = 0
    for _ in pairs(t) do
        count = count + 1
    end
    if count ~= #t or count % 2 ~= 0 then
        reject("syntax")
        return
    end
    local points = {}
    for i = 1, count, 2 do
        local x, y = t[i], t[i + 1]
        if math.type(x) ~= "integer" or math.type(y) ~= "integer"
            or x < INT_MIN or x > INT_MAX or y < INT_MIN or y > INT_MAX then
            reject("syntax")
            return
        end
        points[#points + 1] = x .. "," .. y
    end
    local field = curve_fields[key]
    if not field then
        reject("Unsupported curve type: " .. key)
        return
    end
    if not curves[field] then
        curve_order[#curve_order + 1] = field
    elseif table.concat(curves[field], ";") ~= table.concat(points, ";") then
        stored_from[field] = true
    end
    curves[field] = points
end

local function flatten(t)
    if t[1] ~= nil and type(t[1]) == "table" then
        return -- a list of tables (masks, gradients) is passed over unread
    end
    local keys = sorted_keys(t)
    if not keys then
        reject("syntax") -- positional values or non-name keys
        return
    end
    for _, key in ipairs(keys) do
        local value = t[key]
        if type(value) == "table" then
            if key:sub(1, #"ToneCurve") == "ToneCurve" then
                read_curve(key, value)
            else
                flatten(value)
            end
        else
            local record = scalar_record(value)
            if record then
                store(key, record)
            else
                reject("syntax") -- a function or other value the reader cannot hold
            end
        end
    end
end

flatten(env)

if rejected then
    print("E\t" .. escape(rejected))
    os.exit(0)
end

local keys = {}
for k in pairs(settings) do
    keys[#keys + 1] = k
end
table.sort(keys)
for _, key in ipairs(keys) do
    print(table.concat({ settings[key][1], escape(key), table.unpack(settings[key], 2) }, "\t"))
    if stored_from[key] then
        print("K\t" .. escape(key))
    end
end
table.sort(curve_order)
for _, field in ipairs(curve_order) do
    print("C\t" .. field .. "\t" .. table.concat(curves[field], ";"))
    if stored_from[field] then
        print("K\t" .. field)
    end
end
