SELECT id FROM tickets
WHERE project_id = 7 AND (state = 'open' OR state = 'new') AND (prio > 3 OR (due < 20040101 AND owner IS NULL))
